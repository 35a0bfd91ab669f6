#include "mainwindow/look.h"

namespace mainwindow {
namespace {

FontChoice fontOf(const catalogue::ListLook& look) {
    return {look.FontBold, look.FontItalic, look.FontName, look.FontSize};
}

}  // namespace

FontDialog fontDialog(const catalogue::ListLook& look) {
    FontDialog dialog;
    dialog.font = fontOf(look);
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

void chooseFont(const FontChoice& font, Lists& lists, catalogue::ListLook& look,
                ChosenLook& chosen) {
    look.FontBold = font.bold;
    look.FontItalic = font.italic;
    look.FontName = font.name;
    look.FontSize = font.size;
    chosen.font = font;
    for (const LookList list : kFontOrder)
        lists.setFont(list, font);
}

void chooseTextColour(int32_t colour, Lists& lists, catalogue::ListLook& look, ChosenLook& chosen) {
    look.ForeColor = colour;
    chosen.textColour = colour;
    for (const LookList list : kColourOrder)
        lists.setTextColour(list, colour);
}

void chooseBackColour(int32_t colour, Lists& lists, catalogue::ListLook& look, ChosenLook& chosen) {
    look.BackColor = colour;
    chosen.backColour = colour;
    for (const LookList list : kColourOrder)
        lists.setBackColour(list, colour);
}

void applySavedLook(const catalogue::ListLook& look, Lists& lists) {
    for (const LookList list : {LookList::List1, LookList::DBList2}) {
        lists.setFont(list, fontOf(look));
        lists.setTextColour(list, look.ForeColor);
        lists.setBackColour(list, look.BackColor);
    }
}

}  // namespace mainwindow
