// Small readings and settings of the system's controls, in the logic's text.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/ui/gdi.h"

namespace platform::win32 {

std::u16string textOf(HWND control);
// Sets a text only when it differs, so that nothing flickers and no change event is sent in vain.
void setText(HWND control, std::u16string_view text);

bool isChecked(HWND box);
void setChecked(HWND box, bool checked);
// A check box's value as it is stored: 0 off, 1 on, 2 greyed.
uint8_t checkValue(HWND box);
void setCheckValue(HWND box, uint8_t value);

// The rows of a list box, replaced whole; none is chosen afterwards.
void fillListBox(HWND list, const std::vector<std::u16string>& rows);
// The chosen row, -1 for none.
int listBoxChoice(HWND list);
void chooseInListBox(HWND list, int row);
// The row under a place that a mouse message tells; none beside the rows.
std::optional<int> listBoxRowAt(HWND list, LPARAM place);
// The text of a list box's row; empty for a row that is not there.
std::u16string listBoxText(HWND list, int row);

// Disabling the control that has the focus hands the focus on first.
void setEnabled(HWND control, bool enabled);
void setVisible(HWND control, bool visible);
// Gives the focus the way the dialog manager does, so that the default button follows.
void setFocus(HWND control);

// The text's extent in `font` on the control's screen, device pixels; "&" marks do not count.
SIZE textExtent(HWND control, HFONT font, std::u16string_view text);

// The height of the control's text in its own font, device pixels, with its lines broken at
// `width`.
int textHeight(HWND control, int width);

// The height of so many lines in the control's font, device pixels.
int linesHeight(HWND control, int lines);

// The program's dialog font at `dpi`, the same for places where room is short, and for a title.
enum class FontSize { Usual, Small, Title };
Font dialogFont(int dpi, FontSize size);
void setFont(HWND control, HFONT font);

}  // namespace platform::win32
