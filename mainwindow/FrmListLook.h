// The font and the colours that all lists of CDs and tracks share, on the lists of one window.
//
// A form with such lists keeps one object, made as soon as its window exists:
//
//     std::optional<mainwindow::FrmListLook> look_;                       // in the class
//     look_.emplace(window(), settings.Look, std::array{item(FrmInfoRech_List1), ...});  //
//     onLoad()
//
// Nothing else is to be done: the lists take the look at once, again whenever the user chooses
// another while the window is open, and at new dots per inch.
#pragma once

#include <windows.h>

#include <span>
#include <vector>

#include "catalogue/settings.h"
#include "platform/win32/ui/gdi.h"

namespace mainwindow {

class FrmListLook {
  public:
    // `lists` are list boxes or list views, children of `form`, the top-level window. `look` must
    // outlive the object.
    FrmListLook(HWND form, const catalogue::ListLook& look, std::span<const HWND> lists);
    FrmListLook(const FrmListLook&) = delete;
    FrmListLook& operator=(const FrmListLook&) = delete;
    ~FrmListLook();

    // Gives the lists the look as it is now.
    void refresh();

    // The same for every window of the program that has such lists; after a change of the look.
    static void refreshEverywhere();

  private:
    static LRESULT CALLBACK procedure(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR);
    bool has(HWND list) const;

    HWND form_;
    const catalogue::ListLook& look_;
    std::vector<HWND> lists_;
    platform::win32::Font font_;
    platform::win32::Brush background_;
};

// A stored colour as the system's; negative ones name a colour of the system.
COLORREF colourOf(int32_t stored);

}  // namespace mainwindow
