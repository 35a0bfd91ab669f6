#include "mainwindow/look.h"

#include <algorithm>

namespace mainwindow {

catalogue::ListLook designedLook() {
    constexpr int32_t systemColour = INT32_MIN;
    constexpr int32_t window = 5;
    constexpr int32_t windowText = 8;
    return {u"Segoe UI", false, false, 9, systemColour + windowText, systemColour + window};
}

FontDialog fontDialog(const catalogue::ListLook& look) {
    FontDialog dialog;
    dialog.font = {look.FontBold, look.FontItalic, look.FontName, readableFontSize(look.FontSize)};
    dialog.colour = look.ForeColor;
    return dialog;
}

ColourDialog textColourDialog(const catalogue::ListLook& look) {
    ColourDialog dialog;
    dialog.colour = look.ForeColor;
    return dialog;
}

ColourDialog backColourDialog(const catalogue::ListLook& look) {
    ColourDialog dialog;
    dialog.colour = look.BackColor;
    return dialog;
}

void chooseFont(const FontChoice& font, catalogue::ListLook& look) {
    look.FontBold = font.bold;
    look.FontItalic = font.italic;
    look.FontName = font.name;
    look.FontSize = font.size;
}

int16_t readableFontSize(int16_t stored) {
    constexpr int16_t usual = 9;
    constexpr int16_t smallest = 5;
    constexpr int16_t largest = 72;
    if (stored <= 0) return usual;
    return std::clamp(stored, smallest, largest);
}

}  // namespace mainwindow
