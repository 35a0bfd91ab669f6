#include "mainwindow/formatboxes.h"

#include <algorithm>

namespace mainwindow {

void FormatBoxes::CommandExtPlus_Click() {
    ExtOffset_ = std::min(ExtOffset_ + 1, lastOffset());
}

void FormatBoxes::CommandExtMoins_Click() {
    ExtOffset_ = std::max(ExtOffset_ - 1, 0);
}

void FormatBoxes::listChanged() {
    ExtOffset_ = std::min(ExtOffset_, lastOffset());
}

FormatBoxes::Box FormatBoxes::box(int k) const {
    const int extension = ExtOffset_ + k;
    if (extension > settings_.NbExtensions) return {};
    return {true, settings_.ExtensionList(extension), settings_.ExtensionFlags(extension, column_)};
}

bool FormatBoxes::buttonsVisible() const {
    return settings_.NbExtensions >= kBoxes - 1;
}

bool FormatBoxes::plusEnabled() const {
    return ExtOffset_ < lastOffset();
}

bool FormatBoxes::minusEnabled() const {
    return ExtOffset_ > 0;
}

void FormatBoxes::CheckFormat_Click(int k, uint8_t value) {
    settings_.ExtensionFlags(ExtOffset_ + k, column_) = value;
}

int FormatBoxes::lastOffset() const {
    return std::max(settings_.NbExtensions - (kBoxes - 1), 0);
}

}  // namespace mainwindow
