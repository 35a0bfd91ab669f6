#include "mainwindow/FrmListLook.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "mainwindow/look.h"
#include "platform/win32/ui/controls.h"
#include "platform/win32/ui/dpi.h"
#include "platform/win32/wide.h"

namespace mainwindow {
namespace {

namespace ui = platform::win32;

// Bears the object on its form, so that a change of the look finds every window that shares it.
constexpr wchar_t kObjectProperty[] = L"Brivantole.ListLook";

ui::Font fontOf(const catalogue::ListLook& look, int dpi) {
    constexpr int pointsPerInch = 72;
    LOGFONTW font{};
    font.lfHeight = -MulDiv(readableFontSize(look.FontSize), dpi, pointsPerInch);
    font.lfWeight = look.FontBold ? FW_BOLD : FW_NORMAL;
    font.lfItalic = look.FontItalic;
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfQuality = CLEARTYPE_QUALITY;
    const std::wstring name = ui::toWide(look.FontName);
    name.copy(font.lfFaceName, std::min<size_t>(name.size(), LF_FACESIZE - 1));
    return ui::Font(CreateFontIndirectW(&font));
}

bool isListView(HWND list) {
    std::array<wchar_t, 32> name{};
    GetClassNameW(list, name.data(), static_cast<int>(name.size()));
    return std::wstring_view(name.data()) == WC_LISTVIEWW;
}

}  // namespace

COLORREF colourOf(int32_t stored) {
    constexpr uint32_t systemIndex = 0xFF;
    constexpr uint32_t redGreenBlue = 0xFFFFFF;
    const auto bits = static_cast<uint32_t>(stored);
    return stored < 0 ? GetSysColor(static_cast<int>(bits & systemIndex)) : bits & redGreenBlue;
}

FrmListLook::FrmListLook(HWND form, const catalogue::ListLook& look, std::span<const HWND> lists)
    : form_(form), look_(look), lists_(lists.begin(), lists.end()) {
    SetPropW(form_, kObjectProperty, this);
    SetWindowSubclass(form_, procedure, 0, reinterpret_cast<DWORD_PTR>(this));
    refresh();
}

FrmListLook::~FrmListLook() {
    if (!form_) return;
    RemoveWindowSubclass(form_, procedure, 0);
    RemovePropW(form_, kObjectProperty);
}

void FrmListLook::refresh() {
    ui::Font font = fontOf(look_, ui::dpiOf(form_));
    const COLORREF background = colourOf(look_.BackColor);
    background_.reset(CreateSolidBrush(background));
    for (const HWND list : lists_) {
        ui::setFont(list, font.get());
        if (isListView(list)) {
            ListView_SetTextColor(list, colourOf(look_.ForeColor));
            ListView_SetTextBkColor(list, background);
            ListView_SetBkColor(list, background);
        }
        InvalidateRect(list, nullptr, TRUE);
    }
    font_ = std::move(font);
}

void FrmListLook::refreshEverywhere() {
    const auto refreshForm = [](HWND window, LPARAM) -> BOOL {
        auto* look = static_cast<FrmListLook*>(GetPropW(window, kObjectProperty));
        if (look) look->refresh();
        return TRUE;
    };
    EnumThreadWindows(GetCurrentThreadId(), refreshForm, 0);
}

bool FrmListLook::has(HWND list) const {
    return std::find(lists_.begin(), lists_.end(), list) != lists_.end();
}

LRESULT CALLBACK FrmListLook::procedure(HWND form, UINT message, WPARAM wParam, LPARAM lParam,
                                        UINT_PTR id, DWORD_PTR data) {
    auto* self = reinterpret_cast<FrmListLook*>(data);
    // A list box asks its window for its colours each time it paints.
    if (message == WM_CTLCOLORLISTBOX && self->has(reinterpret_cast<HWND>(lParam))) {
        const HDC dc = reinterpret_cast<HDC>(wParam);
        SetTextColor(dc, colourOf(self->look_.ForeColor));
        SetBkColor(dc, colourOf(self->look_.BackColor));
        return reinterpret_cast<LRESULT>(self->background_.get());
    }
    const LRESULT answer = DefSubclassProc(form, message, wParam, lParam);
    if (message == WM_DPICHANGED) self->refresh();
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(form, procedure, id);
        RemovePropW(form, kObjectProperty);
        self->form_ = nullptr;
    }
    return answer;
}

}  // namespace mainwindow
