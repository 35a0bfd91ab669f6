#include "platform/win32/ui/dpi.h"

#include "platform/win32/ui/gdi.h"

namespace platform::win32 {

namespace {

// Entry points younger than Windows 7 are looked up, so that the program still loads there.
template <typename Function>
Function user32Function(const char* name) {
    const HMODULE module = GetModuleHandleW(L"user32.dll");
    // The two-step cast is the documented way from FARPROC to the real signature.
    return module
               ? reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)))
               : nullptr;
}

int systemDpi() {
    return GetDeviceCaps(WindowDc(nullptr).get(), LOGPIXELSY);
}

}  // namespace

int dpiOf(HWND window) {
    using GetDpiForWindow = UINT(WINAPI*)(HWND);
    static const auto getDpiForWindow = user32Function<GetDpiForWindow>("GetDpiForWindow");
    const UINT dpi = getDpiForWindow && window ? getDpiForWindow(window) : 0;
    return dpi ? static_cast<int>(dpi) : systemDpi();
}

void ownDpiChanges(HWND dialog) {
    using SetBehavior = BOOL(WINAPI*)(HWND, int, int);
    static const auto setBehavior = user32Function<SetBehavior>("SetDialogDpiChangeBehavior");
    constexpr int disableAll = 1;
    if (setBehavior) setBehavior(dialog, disableAll, disableAll);
}

}  // namespace platform::win32
