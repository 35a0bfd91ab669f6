// Font and colours of the program's lists: one choice for all of them.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "catalogue/settings.h"

namespace mainwindow {

// The lists that share the look.
enum class LookList {
    DBList2,           // of the main window
    List1,             // of the main window: what is saved is its look
    FrmInfoRechList1,  // of the search results
    FrmInfoRechList2,
    ListInfocopy,  // of the copy selection
};

// The order in which the lists take a new font, and a new colour.
inline constexpr std::array<LookList, 5> kFontOrder = {
    LookList::DBList2, LookList::List1, LookList::FrmInfoRechList1, LookList::FrmInfoRechList2,
    LookList::ListInfocopy};
inline constexpr std::array<LookList, 5> kColourOrder = {
    LookList::DBList2, LookList::List1, LookList::ListInfocopy, LookList::FrmInfoRechList1,
    LookList::FrmInfoRechList2};

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

// The lists themselves. Those of a window that is not there take the look when it is next made.
class Lists {
  public:
    virtual ~Lists() = default;
    virtual void setFont(LookList list, const FontChoice& font) = 0;
    virtual void setTextColour(LookList list, int32_t colour) = 0;
    virtual void setBackColour(LookList list, int32_t colour) = 0;
};

// What was chosen during this run: all that the secondary windows' lists differ in from their
// design, since they take no saved look.
struct ChosenLook {
    std::optional<FontChoice> font;
    std::optional<int32_t> textColour;
    std::optional<int32_t> backColour;
};

// A dialog was closed with OK: all lists take the choice, and `look`, which is saved, and `chosen`
// remember it.
void chooseFont(const FontChoice& font, Lists& lists, catalogue::ListLook& look,
                ChosenLook& chosen);
void chooseTextColour(int32_t colour, Lists& lists, catalogue::ListLook& look, ChosenLook& chosen);
void chooseBackColour(int32_t colour, Lists& lists, catalogue::ListLook& look, ChosenLook& chosen);

// At start only the main window's two lists take the saved look.
void applySavedLook(const catalogue::ListLook& look, Lists& lists);

}  // namespace mainwindow
