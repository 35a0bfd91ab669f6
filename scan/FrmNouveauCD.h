// The window that adds a CD, or scans one again: its name, its drive, and the scan's progress.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "catalogue/settings.h"
#include "jet/database.h"
#include "platform/system.h"
#include "platform/win32/ui/breather.h"
#include "platform/win32/ui/dialog.h"
#include "platform/win32/ui/drivelist.h"
#include "platform/win32/ui/editfilter.h"
#include "scan/rescan.h"
#include "scan/scanstate.h"

namespace scan {

class FrmNouveauCD : public platform::win32::Dialog, private RescanView {
  public:
    // What a scan works with; all of it must outlive the window.
    struct Program {
        platform::System& system;
        catalogue::Settings& settings;
        jet::Database& catalogue;
        ScanState& scanState;
        std::u16string_view AppPath;  // with a trailing backslash
    };

    explicit FrmNouveauCD(const Program& program);

    // Adds a CD that the user names; true once a scan has run: settings.ScanCdName is then its CD.
    bool addCd(HWND owner);
    // Scans the CD `cdName` again; true when the catalogue has changed.
    bool rescan(HWND owner, std::u16string_view cdName);

  protected:
    void onLoad() override;
    void onCommand(int id, int notification) override;
    void onClose() override;

  private:
    void TextNouveau_Change();
    void CommandNouveauOK_Click();

    // What a scan sees of the window.
    void showWaiting() override;
    void setWaitingCaption(std::u16string_view caption) override;
    void setPercentage(int percent) override;
    void keepAlive() override;
    void load(const RescanCaptions& captions, std::u16string_view cdName) override;
    void showScanning(std::u16string_view drive) override;
    void unload() override;

    ScanTools tools() const;
    void setScanning(bool scanning);

    Program program_;
    HWND owner_ = nullptr;
    std::optional<platform::win32::DriveList> drives_;
    std::optional<platform::win32::EditFilter> nameFilter_;
    std::u16string waitingCaption_;  // the waiting label's until tracks are analysed
    bool scanning_ = false;
    platform::win32::Breather breather_;
};

}  // namespace scan
