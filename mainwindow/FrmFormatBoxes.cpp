#include "mainwindow/FrmFormatBoxes.h"

#include "platform/win32/ui/controls.h"

namespace mainwindow {

namespace ui = platform::win32;

FrmFormatBoxes::FrmFormatBoxes(const Controls& controls, catalogue::Settings& settings, int column)
    : controls_(controls), boxes_(settings, column) {}

HWND FrmFormatBoxes::box(int k) const {
    return GetDlgItem(controls_.window, controls_.CheckFormat0 + k);
}

// Setting a box by message tells its dialog nothing, so no click is mistaken for the user's.
void FrmFormatBoxes::show() {
    for (int k = 0; k < FormatBoxes::kBoxes; ++k) {
        const FormatBoxes::Box shown = boxes_.box(k);
        ui::setText(box(k), shown.caption);
        ui::setCheckValue(box(k), shown.value);
        ui::setVisible(box(k), shown.visible);
    }
    const HWND minus = GetDlgItem(controls_.window, controls_.CommandExtMoins);
    const HWND plus = GetDlgItem(controls_.window, controls_.CommandExtPlus);
    const bool visible = boxes_.buttonsVisible() || !controls_.hidesButtons;
    ui::setVisible(minus, visible);
    ui::setVisible(plus, visible);
    // The one that comes alive first, so that a focus that has to move finds its neighbour.
    if (boxes_.minusEnabled()) ui::setEnabled(minus, true);
    if (boxes_.plusEnabled()) ui::setEnabled(plus, true);
    ui::setEnabled(minus, boxes_.minusEnabled());
    ui::setEnabled(plus, boxes_.plusEnabled());
}

void FrmFormatBoxes::listChanged() {
    boxes_.listChanged();
    show();
}

void FrmFormatBoxes::CommandExtMoins_Click() {
    boxes_.CommandExtMoins_Click();
    show();
}

void FrmFormatBoxes::CommandExtPlus_Click() {
    boxes_.CommandExtPlus_Click();
    show();
}

bool FrmFormatBoxes::CheckFormat_Click(int id) {
    const int k = id - controls_.CheckFormat0;
    if (k < 0 || k >= FormatBoxes::kBoxes) return false;
    boxes_.CheckFormat_Click(k, ui::checkValue(box(k)));
    return true;
}

}  // namespace mainwindow
