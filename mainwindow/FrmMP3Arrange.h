// The main window's controls, put where the layout rules say.
#pragma once

#include <windows.h>

#include <array>

#include "mainwindow/layout.h"
#include "platform/win32/ui/gdi.h"
#include "platform/win32/ui/pictures.h"
#include "platform/win32/ui/tooltips.h"

namespace mainwindow {

class FrmMP3Arrange {
  public:
    // `window` with all its controls must outlive the object.
    explicit FrmMP3Arrange(HWND window);

    // The lists' widths, device pixels.
    int list1Width() const { return layout_[Control::List1].width; }
    int dbList2Width() const { return layout_[Control::DBList2].width; }
    // Gives the lists these widths' proportion, or the usual one where they make no sense.
    void setListWidths(int list1Width, int dbList2Width);

    // Lays out everything for the window's present size; nothing while it is minimised.
    void apply();
    // Moves the bar between the lists, both lists and their headings, and repaints them at once.
    void moveSplit(int distance);
    // The window is shown at other dots per inch: fonts and pictures follow.
    void dpiChanged();
    // The count label's text has changed; makes room when it needs more.
    void countChanged();

    static HWND control(HWND window, Control which);

  private:
    HWND control(Control which) const { return control(window_, which); }
    int px(int designPixels) const;
    void nameControls();
    Size naturalSize(Control which, HFONT bandFont) const;
    LayoutInput measure(bool compact, HFONT bandFont) const;
    // The usual font, or the small one when the first row would not fit in it.
    HFONT chooseBandFont() const;
    void showBandFont(HFONT font);
    void showButtonLooks(bool compact);
    void placeAll() const;
    void loadPictures();

    HWND window_;
    platform::win32::Tooltips tips_;
    platform::win32::Font font_;
    platform::win32::Font smallFont_;
    HFONT bandFont_ = nullptr;  // of the controls below the lists: one of the two
    std::array<platform::win32::ImageList, 5> pictures_;
    platform::win32::Icon drivePicture_;
    Layout layout_;
    // The lists' widths as they were set. A window that is dragged to another size passes through
    // many, and each rounds the lists to whole pixels: taken from the last layout, their proportion
    // would crumble away.
    struct {
        int list1Width = 0;
        int dbList2Width = 0;
    } proportion_;
};

}  // namespace mainwindow
