// The window that asks for a drive: the one to search, or the CD-ROM drive.
#pragma once

#include <optional>

#include "catalogue/settings.h"
#include "platform/drives.h"
#include "platform/win32/ui/dialog.h"
#include "platform/win32/ui/drivelist.h"
#include "scan/scanstate.h"

namespace newcd {

class FrmRechCD : public platform::win32::Dialog {
  public:
    // All of them must outlive the window.
    FrmRechCD(catalogue::Settings& settings, const platform::Drives& drives,
              scan::ScanState& scanState);

    // Each shows the window modally; true when the user confirms: settings.CdRomDrive is then the
    // chosen drive and ScanAnswer is 0. Otherwise nothing changes.
    bool askDriveToSearch(HWND owner);
    bool askCdRomDrive(HWND owner);

  protected:
    void onLoad() override;
    void onCommand(int id, int notification) override;

  private:
    void CommandOK_Click();
    // Makes the search's window that of the drive choice.
    void relabel();

    catalogue::Settings& settings_;
    const platform::Drives& drives_;
    scan::ScanState& scanState_;
    std::optional<platform::win32::DriveList> DriveRech_;
};

}  // namespace newcd
