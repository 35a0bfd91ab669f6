#include "mainwindow/FrmInfoTitre.h"

#include <algorithm>
#include <array>
#include <utility>

#include "mainwindow/FrmInfoTitre.ids.h"
#include "platform/win32/ui/controls.h"
#include "platform/win32/ui/place.h"
#include "platform/win32/wide.h"

namespace mainwindow {
namespace {

namespace ui = platform::win32;

// A heading and its value; from the top to the bottom.
struct Row {
    int heading;
    int value;
    std::u16string TrackInfo::*text;
};
constexpr std::array kRows = {
    Row{FrmInfoTitre_LabelInfoTitre1_0, FrmInfoTitre_LabelInfoTitre1_4, &TrackInfo::title},
    Row{FrmInfoTitre_LabelInfoTitre1_1, FrmInfoTitre_LabelInfoTitre1_5, &TrackInfo::fileName},
    Row{FrmInfoTitre_LabelInfoTitre1_2, FrmInfoTitre_LabelInfoTitre1_6, &TrackInfo::size},
    Row{FrmInfoTitre_LabelInfoTitre1_3, FrmInfoTitre_LabelInfoTitre1_7, &TrackInfo::cdName},
};

POINT pointer() {
    POINT place{};
    GetCursorPos(&place);
    return place;
}

// Draws a value's text, or only measures it (`how` says so), in the font that `dc` has.
void drawValue(HDC dc, HWND label, RECT& place, UINT how) {
    const std::wstring text = ui::toWide(ui::textOf(label));
    // A path without a blank is broken where the line ends.
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &place,
              how | DT_WORDBREAK | DT_EDITCONTROL | DT_NOPREFIX);
}

int heightOfText(HWND label, int width) {
    const ui::WindowDc dc(label);
    const ui::Selection font(dc.get(),
                             reinterpret_cast<HFONT>(SendMessageW(label, WM_GETFONT, 0, 0)));
    RECT place{0, 0, width, 0};
    drawValue(dc.get(), label, place, DT_CALCRECT);
    return place.bottom;
}

}  // namespace

void FrmInfoTitre::show(HWND InfoTitreOpener, const TrackInfo& info, std::function<void()> moved) {
    prepare(InfoTitreOpener, info);
    moved_ = std::move(moved);
    pressedAt_ = pointer();
    SetCapture(window());
    ShowWindow(window(), SW_SHOWNA);
}

void FrmInfoTitre::showForKeyboard(HWND InfoTitreOpener, const TrackInfo& info) {
    prepare(InfoTitreOpener, info);
    const LONG_PTR style = GetWindowLongPtrW(window(), GWL_EXSTYLE);
    SetWindowLongPtrW(window(), GWL_EXSTYLE, style & ~LONG_PTR{WS_EX_NOACTIVATE});
    ShowWindow(window(), SW_SHOW);
}

void FrmInfoTitre::prepare(HWND InfoTitreOpener, const TrackInfo& info) {
    destroy();
    create(InfoTitreOpener);
    moved_ = nullptr;
    showValues(info);
    ui::placeOverOwner(window());
}

void FrmInfoTitre::onCommand(int id, int) {
    if (id == IDOK) finish();
}

void FrmInfoTitre::showValues(const TrackInfo& info) {
    for (size_t row = 0; row < kRows.size(); ++row) {
        ui::setText(item(kRows[row].value), info.*kRows[row].text);
        stretch(row);
    }
}

void FrmInfoTitre::stretch(size_t row) {
    const HWND label = item(kRows[row].value);
    platform::Box place = ui::controlBox(label);
    // No text may push the rows below it off the screen.
    const int highest = ui::workAreaOf(window()).height / static_cast<int>(2 * kRows.size());
    const int more = std::min(heightOfText(label, place.width), highest) - place.height;
    if (more <= 0) return;
    place.height += more;
    ui::moveWindow(label, place);
    for (size_t below = row + 1; below < kRows.size(); ++below) {
        for (const int control : {kRows[below].heading, kRows[below].value}) {
            platform::Box moved = ui::controlBox(item(control));
            moved.top += more;
            ui::moveWindow(item(control), moved);
        }
    }
    platform::Box own = ui::windowBox(window());
    own.height += more;
    ui::moveWindow(window(), own);
}

std::optional<LRESULT> FrmInfoTitre::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_RBUTTONUP:
        case WM_LBUTTONUP:
        case WM_MBUTTONUP:
        // Something else took the mouse: the release will not be seen here.
        case WM_CAPTURECHANGED:
            destroy();
            return 0;
        case WM_DRAWITEM: {
            auto& value = *reinterpret_cast<DRAWITEMSTRUCT*>(lParam);
            SetBkMode(value.hDC, TRANSPARENT);
            drawValue(value.hDC, value.hwndItem, value.rcItem, 0);
            return TRUE;
        }
        case WM_ACTIVATE:
            // Later: a window cannot go while another takes its place as the active one.
            if (LOWORD(wParam) == WA_INACTIVE) PostMessageW(window(), WM_CLOSE, 0, 0);
            return std::nullopt;
        case WM_MOUSEMOVE:
            Form_MouseMove();
            return 0;
        default:
            return std::nullopt;
    }
}

void FrmInfoTitre::Form_MouseMove() {
    // The system also tells of movements when only a window has come under the pointer.
    const POINT now = pointer();
    if (!moved_ || (now.x == pressedAt_.x && now.y == pressedAt_.y)) return;
    const std::function<void()> moved = std::exchange(moved_, nullptr);
    destroy();
    moved();
}

}  // namespace mainwindow
