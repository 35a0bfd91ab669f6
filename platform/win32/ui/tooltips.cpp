#include "platform/win32/ui/tooltips.h"

#include <commctrl.h>

#include "platform/win32/wide.h"

namespace platform::win32 {

Tooltips::Tooltips(HWND window)
    : window_(window),
      tips_(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP,
                            CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, window,
                            nullptr, GetModuleHandleW(nullptr), nullptr)) {}

void Tooltips::set(HWND control, std::u16string_view text) {
    std::wstring wide = toWide(text);
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = window_;
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    tool.lpszText = wide.data();
    SendMessageW(tips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    if (!wide.empty()) SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace platform::win32
