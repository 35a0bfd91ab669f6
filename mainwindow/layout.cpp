#include "mainwindow/layout.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "platform/pixels.h"

namespace mainwindow {
namespace {

using platform::Box;

constexpr int kCompactBelowTwips = 8000;

// Design pixels from here on.
constexpr int kGap = 16;           // left and right margin, beside the lists and between them
constexpr int kListsTop = 24;      // the headings stand above
constexpr int kAroundLists = 130;  // the window's inner height without that of the lists
constexpr int kHeadingGap = 2;     // between a heading and its list
constexpr int kButtonGap = 4;      // between stacked buttons, and between small controls
constexpr int kFirstRow = 14;      // distances below the lists' bottom edge
constexpr int kSecondRow = 40;
constexpr int kDriveLabelTop = kSecondRow + 3;
constexpr int kImageTop = kSecondRow + 22;  // under the drive label
constexpr int kThirdRow = 72;
constexpr int kRowHeight = 21;  // the second and third row centre their controls in it
constexpr int kSearchGap = 10;  // between the search label and its box
constexpr int kWidestFormatBox = 72;
constexpr int kComfortableFormatBox = 54;

constexpr std::array<Control, 5> kActionButtons = {
    Control::Command1, Control::ComNouveau, Control::comcopier, Control::comsave, Control::Comaide};
constexpr std::array<Control, 6> kFirstRowControls = {Control::Check1,  Control::Check3,
                                                      Control::Option1, Control::Option2,
                                                      Control::Option3, Control::Label1};

int right(const Box& box) {
    return box.left + box.width;
}
int bottom(const Box& box) {
    return box.top + box.height;
}

class Arrangement {
  public:
    explicit Arrangement(const LayoutInput& input) : input_(input) {}

    Layout result() {
        placeLists();
        placeButtons();
        placeFirstRow();
        placeSecondRow();
        placeThirdRow();
        followLists(layout_);
        return layout_;
    }

    static void followLists(Layout& layout) {
        const Box& cds = layout[Control::List1];
        const Box& tracks = layout[Control::DBList2];
        layout[Control::LabelReglage] = {right(cds), cds.top, tracks.left - right(cds), cds.height};
        for (const auto& [heading, list] :
             {std::pair{Control::Label4, cds}, std::pair{Control::Label5, tracks}}) {
            layout[heading].left = list.left;
            layout[heading].width = list.width;
        }
    }

  private:
    int px(int designPixels) const { return platform::scaled(designPixels, input_.dpi); }
    int buttonColumnWidth() const { return input_.of(Control::Comaide).width; }
    int listsBottom() const { return bottom(layout_[Control::DBList2]); }

    void placeLists() {
        const int available = input_.clientWidth - 4 * px(kGap) - buttonColumnWidth();
        const int height = std::max(input_.clientHeight - px(kAroundLists), 0);
        Box& cds = layout_[Control::List1];
        Box& tracks = layout_[Control::DBList2];
        cds = {px(kGap) + buttonColumnWidth() + px(kGap), px(kListsTop), cdListWidth(available),
               height};
        const int left = right(cds) + px(kGap);
        tracks = {left, cds.top, std::max(input_.clientWidth - px(kGap) - left, 0), height};
        for (const Control heading : {Control::Label4, Control::Label5}) {
            const int headingHeight = input_.of(heading).height;
            layout_[heading] = {0, cds.top - px(kHeadingGap) - headingHeight, 0, headingHeight};
        }
    }

    // In whole numbers, so that a resize to the same width changes nothing.
    int cdListWidth(int available) const {
        const int64_t sum = int64_t{input_.list1Width} + input_.dbList2Width;
        if (available <= 0 || sum <= 0) return 0;
        return static_cast<int>(int64_t{input_.list1Width} * available / sum);
    }

    void placeButtons() {
        const Size automatic = input_.of(Control::CheckAutoRefresh);
        int top = px(kListsTop);
        // Its text stands in line with the headings.
        const Box& heading = layout_[Control::Label4];
        const int level = heading.top + (heading.height - automatic.height) / 2;
        layout_[Control::CheckAutoRefresh] = {px(kGap), std::min(level, top - automatic.height),
                                              buttonColumnWidth(), automatic.height};
        for (const Control button : kActionButtons) {
            const int height = px(lookOf(button, input_.compact).height);
            layout_[button] = {px(kGap), top, buttonColumnWidth(), height};
            top += height + px(kButtonGap);
        }
        const Size image = input_.of(Control::Image1);
        layout_[Control::Image1] = {px(kGap), listsBottom() + px(kImageTop), image.width,
                                    image.height};
        layout_[Control::Label2] = {px(kGap), listsBottom() + px(kDriveLabelTop),
                                    buttonColumnWidth(), input_.of(Control::Label2).height};
    }

    void placeFirstRow() {
        int left = input_.clientWidth - px(kGap);
        for (const Control control : kFirstRowControls)
            left -= input_.of(control).width;
        for (const Control control : kFirstRowControls) {
            const Size size = input_.of(control);
            layout_[control] = {left, listsBottom() + px(kFirstRow), size.width, size.height};
            left += size.width;
        }
    }

    // Puts a control of its natural size into the row, its left edge at `left`.
    void placeInRow(Control control, int left, int row) {
        layout_[control] = inRow(input_.of(control), left, row);
    }
    Box inRow(Size size, int left, int row) const {
        const int top = listsBottom() + px(row) + (px(kRowHeight) - size.height) / 2;
        return {left, top, size.width, size.height};
    }

    void placeSecondRow() {
        int left = layout_[Control::List1].left;
        for (const Control control :
             {Control::LabelLecteur, Control::CommandLecteurMoins, Control::CommandLecteurPlus})
            left += input_.of(control).width + px(kButtonGap);
        placeInRow(Control::Label3, left, kSecondRow);
        for (const Control control :
             {Control::CommandLecteurPlus, Control::CommandLecteurMoins, Control::LabelLecteur}) {
            left -= input_.of(control).width + px(kButtonGap);
            placeInRow(control, left, kSecondRow);
        }
        const int search = right(layout_[Control::Label3]) + px(kSearchGap);
        placeInRow(Control::TextRech, search, kSecondRow);
        layout_[Control::TextRech].width = std::max(right(layout_[Control::DBList2]) - search, 0);
    }

    // Under the CD list while the boxes have room there, else as far left as the drive lets them.
    int thirdRowLeft() const {
        const int underList = layout_[Control::List1].left;
        const int comfortable = static_cast<int>(kFormatBoxes) * px(kComfortableFormatBox) +
                                input_.of(Control::CommandExtMoins).width +
                                input_.of(Control::CommandExtPlus).width + 2 * px(kButtonGap);
        if (right(layout_[Control::DBList2]) - underList >= comfortable) return underList;
        return right(layout_[Control::Image1]) + px(kButtonGap);
    }

    void placeThirdRow() {
        const int rowLeft = thirdRowLeft();
        placeInRow(Control::CommandExtMoins, rowLeft, kThirdRow);
        int left = right(layout_[Control::CommandExtMoins]) + px(kButtonGap);
        const int end = right(layout_[Control::DBList2]) - px(kButtonGap) -
                        input_.of(Control::CommandExtPlus).width;
        const int share = std::max(end - left, 0) / static_cast<int>(kFormatBoxes);
        const Size box = {std::min(share, px(kWidestFormatBox)), input_.naturalFormatBox.height};
        for (Box& formatBox : layout_.formatBoxes) {
            formatBox = inRow(box, left, kThirdRow);
            left += box.width;
        }
        placeInRow(Control::CommandExtPlus, left + px(kButtonGap), kThirdRow);
    }

    const LayoutInput& input_;
    Layout layout_;
};

}  // namespace

bool isCompact(int outerHeightTwips) {
    return outerHeightTwips < kCompactBelowTwips;
}

ButtonLook lookOf(Control actionButton, bool compact) {
    constexpr int compactHeight = 45;
    constexpr int normalHeight = 60;
    constexpr int twoLineHeight = 75;  // the texts of these two are the longest
    if (compact) return {false, compactHeight};
    const bool twoLines = actionButton == Control::comcopier || actionButton == Control::comsave;
    return {true, twoLines ? twoLineHeight : normalHeight};
}

Layout layOut(const LayoutInput& input) {
    return Arrangement(input).result();
}

void moveSplit(Layout& layout, int distance) {
    layout[Control::List1].width += distance;
    layout[Control::DBList2].left += distance;
    layout[Control::DBList2].width -= distance;
    Arrangement::followLists(layout);
}

}  // namespace mainwindow
