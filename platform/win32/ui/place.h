// Windows on the screen.
#pragma once

#include <windows.h>

#include <vector>

#include "platform/placement.h"

namespace platform::win32 {

Box boxOf(const RECT& rectangle);
RECT rectOf(const Box& box);

// The outer box of a window, on the screen.
Box windowBox(HWND window);

// The box of a control inside its window's client area.
Box controlBox(HWND control);

// The client area's size, at 0, 0.
Box clientBox(HWND window);

// The part of the screen around `window` that no task bar covers.
Box workAreaOf(HWND window);

void moveWindow(HWND window, const Box& box);

// A child of a window and the place that it is to take in the client area.
struct Placement {
    HWND control;
    Box box;
};

// Places children of `window` all at once and lets all of it be painted anew: what the screen shows
// is not moved along with them, since one may show what another has left there.
void arrange(HWND window, const std::vector<Placement>& placements);

// Moves a control by that much; its size stays, also that of a list that drops down from it.
void shiftControl(HWND control, int right, int down);

// Centres a window over `other`, or on the screen when that one is hidden or minimised, and keeps
// it inside the work area; one larger than the work area is made smaller.
void placeOver(HWND window, HWND other);

// Centres a window over its owner, or on the screen when it has none or the owner is minimised,
// and keeps it inside the work area.
void placeOverOwner(HWND window);

}  // namespace platform::win32
