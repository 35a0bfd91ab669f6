// Small readings and settings of the system's controls, in the logic's text.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "platform/win32/ui/gdi.h"

namespace platform::win32 {

std::u16string textOf(HWND control);
// Sets a text only when it differs, so that nothing flickers and no change event is sent in vain.
void setText(HWND control, std::u16string_view text);

bool isChecked(HWND box);
void setChecked(HWND box, bool checked);

// Disabling the control that has the focus hands the focus on first.
void setEnabled(HWND control, bool enabled);
void setVisible(HWND control, bool visible);
// Gives the focus the way the dialog manager does, so that the default button follows.
void setFocus(HWND control);

// The text's extent in the control's own font, device pixels; "&" marks do not count.
SIZE textExtent(HWND control, std::u16string_view text);

// The program's dialog font at `dpi`.
Font dialogFont(int dpi);
void setFont(HWND control, HFONT font);

}  // namespace platform::win32
