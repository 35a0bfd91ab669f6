#include "platform/win32/ui/controls.h"

#include "platform/win32/wide.h"

namespace platform::win32 {

std::u16string textOf(HWND control) {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(control)), L'\0');
    const int length = GetWindowTextW(control, text.data(), static_cast<int>(text.size()) + 1);
    text.resize(static_cast<size_t>(length));
    return fromWide(text);
}

void setText(HWND control, std::u16string_view text) {
    if (textOf(control) != text) SetWindowTextW(control, toWide(text).c_str());
}

bool isChecked(HWND box) {
    return SendMessageW(box, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void setChecked(HWND box, bool checked) {
    SendMessageW(box, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

void setEnabled(HWND control, bool enabled) {
    if (!enabled && GetFocus() == control) {
        SendMessageW(GetAncestor(control, GA_ROOT), WM_NEXTDLGCTL, 0, FALSE);
    }
    EnableWindow(control, enabled);
}

void setVisible(HWND control, bool visible) {
    ShowWindow(control, visible ? SW_SHOWNA : SW_HIDE);
}

void setFocus(HWND control) {
    SendMessageW(GetAncestor(control, GA_ROOT), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control),
                 TRUE);
}

SIZE textExtent(HWND control, std::u16string_view text) {
    const WindowDc dc(control);
    const auto font = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
    const Selection selection(dc.get(), font ? font : GetStockObject(DEFAULT_GUI_FONT));
    RECT rectangle{};
    const std::wstring wide = toWide(text);
    DrawTextW(dc.get(), wide.c_str(), static_cast<int>(wide.size()), &rectangle,
              DT_CALCRECT | DT_LEFT | DT_NOCLIP);
    return {rectangle.right, rectangle.bottom};
}

Font dialogFont(int dpi) {
    constexpr int points = 9;
    constexpr int pointsPerInch = 72;
    return Font(CreateFontW(-MulDiv(points, dpi, pointsPerInch), 0, 0, 0, FW_NORMAL, FALSE, FALSE,
                            FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                            CLEARTYPE_QUALITY, DEFAULT_PITCH | FF_DONTCARE, L"Segoe UI"));
}

void setFont(HWND control, HFONT font) {
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

}  // namespace platform::win32
