// Plain text on the system's clipboard.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace platform::win32 {

// The clipboard's text; empty when it holds none or another program keeps it.
std::u16string clipboardText();

// Makes `text` all that the clipboard holds; the empty text leaves it empty. `owner` is a window of
// the program. Throws when another program keeps the clipboard.
void setClipboardText(HWND owner, std::u16string_view text);

}  // namespace platform::win32
