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

uint8_t checkValue(HWND box) {
    return static_cast<uint8_t>(SendMessageW(box, BM_GETCHECK, 0, 0));
}

void setCheckValue(HWND box, uint8_t value) {
    SendMessageW(box, BM_SETCHECK, value, 0);
}

void fillListBox(HWND list, const std::vector<std::u16string>& rows) {
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    SendMessageW(list, LB_RESETCONTENT, 0, 0);
    for (const std::u16string& row : rows)
        SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(toWide(row).c_str()));
    SendMessageW(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, nullptr, TRUE);
}

int listBoxChoice(HWND list) {
    return static_cast<int>(SendMessageW(list, LB_GETCURSEL, 0, 0));
}

void chooseInListBox(HWND list, int row) {
    SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
}

std::optional<int> listBoxRowAt(HWND list, LPARAM place) {
    // The row's number, and above it whether the place is beside the rows.
    const LRESULT row = SendMessageW(list, LB_ITEMFROMPOINT, 0, place);
    return HIWORD(row) == 0 ? std::optional<int>(LOWORD(row)) : std::nullopt;
}

std::u16string listBoxText(HWND list, int row) {
    const LRESULT length = SendMessageW(list, LB_GETTEXTLEN, static_cast<WPARAM>(row), 0);
    if (length == LB_ERR) return {};
    // The box writes a final zero behind the text.
    std::wstring text(static_cast<size_t>(length) + 1, L'\0');
    SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text.data()));
    text.pop_back();
    return fromWide(text);
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

SIZE textExtent(HWND control, HFONT font, std::u16string_view text) {
    const WindowDc dc(control);
    const Selection selection(dc.get(), font);
    RECT rectangle{};
    const std::wstring wide = toWide(text);
    DrawTextW(dc.get(), wide.c_str(), static_cast<int>(wide.size()), &rectangle,
              DT_CALCRECT | DT_LEFT | DT_NOCLIP);
    return {rectangle.right, rectangle.bottom};
}

int textHeight(HWND control, int width) {
    const WindowDc dc(control);
    const Selection selection(dc.get(),
                              reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
    RECT rectangle{0, 0, width, 0};
    const std::wstring text = toWide(textOf(control));
    return DrawTextW(dc.get(), text.c_str(), static_cast<int>(text.size()), &rectangle,
                     DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
}

int linesHeight(HWND control, int lines) {
    const WindowDc dc(control);
    const Selection selection(dc.get(),
                              reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc.get(), &metrics);
    return lines * metrics.tmHeight;
}

Font dialogFont(int dpi, FontSize size) {
    constexpr int pointsPerInch = 72;
    const int points = size == FontSize::Small ? 8 : size == FontSize::Usual ? 9 : 14;
    const int weight = size == FontSize::Title ? FW_SEMIBOLD : FW_NORMAL;
    return Font(CreateFontW(-MulDiv(points, dpi, pointsPerInch), 0, 0, 0, weight, FALSE, FALSE,
                            FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                            CLEARTYPE_QUALITY, DEFAULT_PITCH | FF_DONTCARE, L"Segoe UI"));
}

void setFont(HWND control, HFONT font) {
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

}  // namespace platform::win32
