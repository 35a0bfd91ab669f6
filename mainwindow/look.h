// Font and colours of the program's lists: one choice for all of them. The settings keep it for the
// main window's lists; those of the windows for a new CD begin each run as designed.
#pragma once

#include <cstdint>
#include <string>

#include "catalogue/settings.h"

namespace mainwindow {

// The look of the new-CD windows' lists before the first choice of a run: that of their windows.
catalogue::ListLook designedLook();

struct FontChoice {
    bool bold = false;
    bool italic = false;
    std::u16string name;
    int16_t size = 0;  // points
    bool operator==(const FontChoice&) const = default;
};

// How the dialogs open. The colour of the font dialog is for show: text colour has a command of
// its own.
struct FontDialog {
    FontChoice font;
    int32_t colour = 0;
    bool strikeThrough = false;
    bool underline = false;
    int flags = 0x1 | 0x100 | 0x10000;  // screen fonts, effects, only fonts that exist
};
struct ColourDialog {
    int32_t colour = 0;
    int flags = 0x2 | 0x8;  // fully open, with a help button
};
FontDialog fontDialog(const catalogue::ListLook& look);
ColourDialog textColourDialog(const catalogue::ListLook& look);
ColourDialog backColourDialog(const catalogue::ListLook& look);

// What the help button of the colour dialogs says.
inline constexpr std::u16string_view kColourHelp =
    u"La couleur choisie vaut pour toutes les listes du programme\u00A0: la liste des CD, la liste "
    u"des morceaux, les résultats d'une recherche et la sélection d'une copie.";
inline constexpr std::u16string_view kColourHelpTitle = u"Couleur des listes";

// The lists take this font from now on; the colours stay.
void chooseFont(const FontChoice& font, catalogue::ListLook& look);

// The size at which a font of this stored size is shown, points: a settings file from elsewhere
// may hold one that nobody could read, or of which not one row would fit into a list.
int16_t readableFontSize(int16_t stored);

}  // namespace mainwindow
