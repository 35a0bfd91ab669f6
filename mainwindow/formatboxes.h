// The ten file-type check boxes of the main window: a window over the extension list that two
// buttons scroll.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "catalogue/settings.h"

namespace mainwindow {

class FormatBoxes {
  public:
    static constexpr int kBoxes = 10;

    struct Box {
        bool visible = false;
        std::u16string caption;  // the extension
        uint8_t value = 0;       // its flag of the column that is shown
        bool operator==(const Box&) const = default;
    };

    // `settings` must outlive the boxes; `column` of its ExtensionFlags is what the boxes show and
    // set.
    explicit FormatBoxes(catalogue::Settings& settings, int column = catalogue::shownColumn)
        : settings_(settings), column_(column) {}

    // The index of the extension in box 0.
    int ExtOffset() const { return ExtOffset_; }

    // One extension forwards or back; at the end of the way nothing happens.
    void CommandExtPlus_Click();
    void CommandExtMoins_Click();
    // To be called after the extension list has changed: keeps the boxes within it.
    void listChanged();

    Box box(int k) const;
    // Whether there are enough extensions for the two buttons to be shown at all.
    bool buttonsVisible() const;
    bool plusEnabled() const;
    bool minusEnabled() const;

    // Box `k` was set to `value` by the user; its extension's flag follows.
    void CheckFormat_Click(int k, uint8_t value);

  private:
    int lastOffset() const;

    catalogue::Settings& settings_;
    int column_;
    int ExtOffset_ = 0;
};

}  // namespace mainwindow
