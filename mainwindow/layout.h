// Where the controls of the main window stand. Lengths are device pixels of the window's inside,
// except where twips or design pixels (at 96 dots per inch) are named.
#pragma once

#include <array>
#include <cstddef>

#include "platform/placement.h"

namespace mainwindow {

enum class Control {
    List1,
    LabelReglage,
    DBList2,
    Label4,
    Label5,
    Command1,
    ComNouveau,
    comcopier,
    comsave,
    Comaide,
    Image1,
    Label2,
    Check1,
    Check3,
    Option1,
    Option2,
    Option3,
    Label1,
    LabelLecteur,
    CommandLecteurMoins,
    CommandLecteurPlus,
    Label3,
    TextRech,
    CheckAutoRefresh,
    CommandExtMoins,
    CommandExtPlus,
    Count
};

inline constexpr size_t kFormatBoxes = 10;

// The least outer size of the window.
inline constexpr int kMinHeightTwips = 6900;
inline constexpr int kMinWidthTwips = 9000;

// The window's outer height decides how the action buttons look.
bool isCompact(int outerHeightTwips);

// How an action button looks: its full text stands beside it when it is too low to hold it.
struct ButtonLook {
    bool textAsCaption;  // otherwise the caption is empty and the text is the tool tip
    int height;          // design pixels
};
ButtonLook lookOf(Control actionButton, bool compact);

struct Size {
    int width = 0;
    int height = 0;
};

struct LayoutInput {
    int dpi = 96;
    int clientWidth = 0;
    int clientHeight = 0;
    bool compact = false;
    // The lists' widths when they were set last, by the user or from the settings: a resize keeps
    // their proportion.
    int list1Width = 0;
    int dbList2Width = 0;
    // What each control needs for its text in the current font. Of the action buttons only the
    // width of Comaide counts; of lists, bar and headings nothing does but the headings' height.
    std::array<Size, static_cast<size_t>(Control::Count)> natural{};
    Size naturalFormatBox;

    Size& of(Control control) { return natural[static_cast<size_t>(control)]; }
    const Size& of(Control control) const { return natural[static_cast<size_t>(control)]; }
};

struct Layout {
    std::array<platform::Box, static_cast<size_t>(Control::Count)> boxes{};
    // CheckFormat(0) to CheckFormat(9); which of them are visible is FormatBoxes' matter.
    std::array<platform::Box, kFormatBoxes> formatBoxes{};

    platform::Box& operator[](Control control) { return boxes[static_cast<size_t>(control)]; }
    const platform::Box& operator[](Control control) const {
        return boxes[static_cast<size_t>(control)];
    }
};

Layout layOut(const LayoutInput& input);

// The bar, the lists and their headings after the bar has moved by `distance` to the right
// (negative: to the left); the track list's right edge stays.
void moveSplit(Layout& layout, int distance);

}  // namespace mainwindow
