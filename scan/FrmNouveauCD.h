// The window that adds a CD: its name, its drive, and the progress of the scan.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "catalogue/settings.h"
#include "jet/database.h"
#include "platform/system.h"
#include "platform/win32/ui/dialog.h"
#include "platform/win32/ui/drivelist.h"
#include "platform/win32/ui/editfilter.h"
#include "scan/scanstate.h"
#include "scan/scanview.h"

namespace scan {

class FrmNouveauCD : public platform::win32::Dialog, private ScanView {
  public:
    // What a scan works with; all of it must outlive the window.
    struct Program {
        platform::System& system;
        catalogue::Settings& settings;
        jet::Database& catalogue;
        ScanState& scanState;
        std::u16string_view AppPath;  // with a trailing backslash
    };

    // runModal() gives IDOK once a scan has run: settings.ScanCdName is then its CD.
    explicit FrmNouveauCD(const Program& program);

  protected:
    void onLoad() override;
    void onCommand(int id, int notification) override;
    void onClose() override;

  private:
    void TextNouveau_Change();
    void CommandNouveauOK_Click();

    // The scan's view.
    void showWaiting() override;
    void setWaitingCaption(std::u16string_view caption) override;
    void keepAlive() override;

    void showScanning(bool scanning);

    Program program_;
    std::optional<platform::win32::DriveList> drives_;
    std::optional<platform::win32::EditFilter> nameFilter_;
    bool scanning_ = false;
    ULONGLONG lastAlive_ = 0;  // milliseconds since the system's start
};

}  // namespace scan
