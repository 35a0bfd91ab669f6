#include "mainwindow/FrmMP3Formats.h"

#include "mainwindow/FrmMP3.ids.h"
#include "platform/win32/ui/controls.h"

namespace mainwindow {

namespace ui = platform::win32;

FrmMP3Formats::FrmMP3Formats(HWND window, catalogue::Settings& settings)
    : window_(window), boxes_(settings) {}

HWND FrmMP3Formats::box(int k) const {
    return GetDlgItem(window_, FrmMP3_CheckFormat0 + k);
}

// Setting a box by message tells its dialog nothing, so no click is mistaken for the user's.
void FrmMP3Formats::show() {
    for (int k = 0; k < FormatBoxes::kBoxes; ++k) {
        const FormatBoxes::Box shown = boxes_.box(k);
        ui::setText(box(k), shown.caption);
        SendMessageW(box(k), BM_SETCHECK, shown.value, 0);
        ui::setVisible(box(k), shown.visible);
    }
    const HWND minus = GetDlgItem(window_, FrmMP3_CommandExtMoins);
    const HWND plus = GetDlgItem(window_, FrmMP3_CommandExtPlus);
    ui::setVisible(minus, boxes_.buttonsVisible());
    ui::setVisible(plus, boxes_.buttonsVisible());
    // The one that comes alive first, so that a focus that has to move finds its neighbour.
    if (boxes_.minusEnabled()) ui::setEnabled(minus, true);
    if (boxes_.plusEnabled()) ui::setEnabled(plus, true);
    ui::setEnabled(minus, boxes_.minusEnabled());
    ui::setEnabled(plus, boxes_.plusEnabled());
}

void FrmMP3Formats::listChanged() {
    boxes_.listChanged();
    show();
}

void FrmMP3Formats::CommandExtMoins_Click() {
    boxes_.CommandExtMoins_Click();
    show();
}

void FrmMP3Formats::CommandExtPlus_Click() {
    boxes_.CommandExtPlus_Click();
    show();
}

void FrmMP3Formats::CheckFormat_Click(int k) {
    const LRESULT value = SendMessageW(box(k), BM_GETCHECK, 0, 0);
    boxes_.CheckFormat_Click(k, static_cast<uint8_t>(value));
}

}  // namespace mainwindow
