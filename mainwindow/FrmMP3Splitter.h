// The bar between the CD list and the track list, as the mouse sees it.
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

  private:
    static LRESULT CALLBACK procedure(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR);
    void LabelReglage_MouseMove(int x);
    void paint() const;

    HWND bar_;
    FrmMP3Arrange& arrange_;
    Splitter splitter_;
};

}  // namespace mainwindow
