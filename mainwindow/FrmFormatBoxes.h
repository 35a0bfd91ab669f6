// The check boxes CheckFormat(0) to CheckFormat(9) of a window and the buttons that scroll them.
#pragma once

#include <windows.h>

#include "mainwindow/formatboxes.h"

namespace mainwindow {

class FrmFormatBoxes {
  public:
    struct Controls {
        HWND window;
        int CheckFormat0;  // identifier of the first box; the others follow
        int CommandExtMoins;
        int CommandExtPlus;
        // Whether the buttons are there only when they can be needed, or else disabled.
        bool hidesButtons;
    };
    // The window and `settings` must outlive the object; `column` of its ExtensionFlags is what the
    // boxes show and set.
    FrmFormatBoxes(const Controls& controls, catalogue::Settings& settings, int column);

    // Shows the boxes in view with their extensions and flags.
    void show();
    // The extension list has changed.
    void listChanged();

    void CommandExtMoins_Click();
    void CommandExtPlus_Click();
    // The user has clicked the box of that identifier; its extension's flag follows. False for any
    // other control.
    bool CheckFormat_Click(int id);

  private:
    HWND box(int k) const;

    Controls controls_;
    FormatBoxes boxes_;
};

}  // namespace mainwindow
