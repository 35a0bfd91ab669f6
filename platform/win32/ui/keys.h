// Keys that mean the same in every window.
#pragma once

#include <windows.h>

namespace platform::win32 {

// Whether a key is pressed that stands for the right mouse button: the context-menu key, or Shift
// with F10.
bool isContextMenuKey(const MSG& message);

}  // namespace platform::win32
