#include "platform/win32/ui/keys.h"

namespace platform::win32 {

bool isContextMenuKey(const MSG& message) {
    if (message.message == WM_KEYDOWN) return message.wParam == VK_APPS;
    // F10 is told like a key that is pressed together with Alt.
    return message.message == WM_SYSKEYDOWN && message.wParam == VK_F10 &&
           GetKeyState(VK_SHIFT) < 0;
}

}  // namespace platform::win32
