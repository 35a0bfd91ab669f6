// What screen readers say of a control whose own text is a sign or a picture.
#pragma once

#include <windows.h>

#include <string_view>

namespace platform::win32 {

// Names `control` for assistive programs, for as long as it lives. The calling thread has entered
// a COM apartment. A system without such services is left as it is.
void setAccessibleName(HWND control, std::u16string_view name);

}  // namespace platform::win32
