// The window that sets a copy up: from where to where, which files, and what is left out.
#pragma once

#include <optional>

#include "catalogue/settings.h"
#include "mainwindow/FrmFormatBoxes.h"
#include "newcd/FrmFolderList.h"
#include "newcd/copysetup.h"
#include "newcd/folderlist.h"
#include "newcd/runstate.h"
#include "platform/system.h"
#include "platform/win32/ui/dialog.h"
#include "platform/win32/ui/drivelist.h"
#include "platform/win32/ui/editfilter.h"
#include "platform/win32/ui/tooltips.h"

namespace newcd {

class FrmCDcopy : public platform::win32::Dialog {
  public:
    // All of them must outlive the window.
    FrmCDcopy(const platform::System& system, catalogue::Settings& settings, RunState& run);

    // Shows the window modally; true when the user confirms: the choices are in the settings and
    // the run then, and ScanAnswer is 0. Otherwise nothing changes.
    bool ask(HWND owner);

    bool translate(MSG& message) override;

  protected:
    void onLoad() override;
    void onCommand(int id, int notification) override;
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void onClick(int id);
    bool onFolderKey(WPARAM key);
    void Drivedestin_Change();
    void DirDestin_DblClick();
    void CommandDossier_Click();
    void ComCopierOK_Click();

    void presetDestination(const CopySetup& setup);
    void showDestination();
    // Which of the buttons from `first` to `last` is set.
    int option(int first, int last) const;

    const platform::System& system_;
    catalogue::Settings& settings_;
    RunState& run_;
    // The type boxes work on it, so that cancelling changes nothing.
    catalogue::Settings draft_;
    FolderList folders_;
    std::optional<platform::win32::DriveList> DriveSource_;
    std::optional<platform::win32::DriveList> Drivedestin_;
    std::optional<FrmFolderList> DirDestin_;
    std::optional<mainwindow::FrmFormatBoxes> formats_;
    std::optional<platform::win32::EditFilter> filter_;
    std::optional<platform::win32::Tooltips> tips_;
};

}  // namespace newcd
