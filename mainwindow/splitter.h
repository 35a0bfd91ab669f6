// Moving the bar between the CD list and the track list, by the mouse and by the keyboard.
#pragma once

#include <optional>

namespace mainwindow {

class Splitter {
  public:
    // Left or right button pressed on the bar. `x` is the pointer's position in the window, not in
    // the bar, which moves along under the pointer.
    void mouseDown(int x);
    // The distance by which bar and lists move now (negative: to the left); 0 when no drag is in
    // progress, when the pointer has not moved sideways, and when a list would become too narrow.
    // A refused distance is not lost: it counts from where the bar stands. Device pixels.
    int mouseMove(int x, int list1Width, int dbList2Width, int dpi);
    void mouseUp();

    bool dragging() const { return SplitStartX_.has_value(); }

  private:
    std::optional<int> SplitStartX_;  // where the drag began or was last applied
};

// The distance by which bar and lists move when a key asks for `wanted` (negative: to the left): as
// much of it as leaves both lists wide enough. Device pixels.
int keyDistance(int wanted, int list1Width, int dbList2Width, int dpi);

}  // namespace mainwindow
