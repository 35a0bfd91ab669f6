#include "mainwindow/look.h"

#include <algorithm>

namespace mainwindow {

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
