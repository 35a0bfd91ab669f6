// The check boxes CheckFormat(0) to CheckFormat(9) and the buttons that scroll them.
#pragma once

#include <windows.h>

#include "mainwindow/formatboxes.h"

namespace mainwindow {

class FrmMP3Formats {
  public:
    // Both must outlive the object.
    FrmMP3Formats(HWND window, catalogue::Settings& settings);

    // Shows the boxes in view with their extensions and flags.
    void show();
    // The extension list has changed.
    void listChanged();

    void CommandExtMoins_Click();
    void CommandExtPlus_Click();
    // The user has clicked box `k`; its extension's flag follows.
    void CheckFormat_Click(int k);

  private:
    HWND box(int k) const;

    HWND window_;
    FormatBoxes boxes_;
};

}  // namespace mainwindow
