// The bar between the CD list and the track list, moved by the mouse or by the keyboard.
#pragma once

#include <windows.h>

#include "mainwindow/FrmMP3Arrange.h"
#include "mainwindow/splitter.h"

namespace mainwindow {

class FrmMP3Splitter {
  public:
    // `bar` is a static control; it and `arrange` must outlive the object.
    FrmMP3Splitter(HWND bar, FrmMP3Arrange& arrange);
    FrmMP3Splitter(const FrmMP3Splitter&) = delete;
    FrmMP3Splitter& operator=(const FrmMP3Splitter&) = delete;
    ~FrmMP3Splitter();

    // Gives the bar the focus, so that keys move it.
    void takeFocus();
    // A key for the bar while it has the focus; false for one that means nothing to it.
    bool onKeyDown(WPARAM key);

  private:
    static LRESULT CALLBACK procedure(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR);
    void LabelReglage_MouseMove(int x);
    void moveByKey(int wanted);
    // Gives the focus back to the control that had it before.
    void leave();
    void paint() const;

    HWND bar_;
    FrmMP3Arrange& arrange_;
    Splitter splitter_;
    HWND focusBefore_ = nullptr;
    int list1WidthBefore_ = 0;  // what Escape goes back to
};

}  // namespace mainwindow
