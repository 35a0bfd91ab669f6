#include "platform/win32/ui/pointer.h"

namespace platform::win32 {

HCURSOR busyCursor(Busy busy) {
    switch (busy) {
        case Busy::InBackground:
            return LoadCursorW(nullptr, IDC_APPSTARTING);
        case Busy::Wholly:
            return LoadCursorW(nullptr, IDC_WAIT);
        default:
            return nullptr;
    }
}

void showPointerAnew() {
    POINT place{};
    if (!GetCursorPos(&place)) return;
    const HWND under = WindowFromPoint(place);
    if (!under || GetWindowThreadProcessId(under, nullptr) != GetCurrentThreadId()) return;
    const LRESULT part = SendMessageW(under, WM_NCHITTEST, 0, MAKELPARAM(place.x, place.y));
    SendMessageW(under, WM_SETCURSOR, reinterpret_cast<WPARAM>(under),
                 MAKELPARAM(part, WM_MOUSEMOVE));
}

}  // namespace platform::win32
