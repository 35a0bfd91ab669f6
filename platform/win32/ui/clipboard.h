// Plain text on the system's clipboard.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace platform::win32 {

// The clipboard's text; empty when it holds none or another program keeps it.
std::u16string clipboardText();

}  // namespace platform::win32
