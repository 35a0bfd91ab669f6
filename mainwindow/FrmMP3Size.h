// The main window's size and state, as the settings keep them (twips).
#pragma once

#include <windows.h>

#include "catalogue/settings.h"

namespace mainwindow {

// The least outer size, device pixels.
POINT leastSize(HWND window);

// Keeps the frame that the user is dragging by `edge` (of WM_SIZING) from becoming smaller.
void keepLeastSize(HWND window, WPARAM edge, RECT& frame);

// Whether the window is in its normal state and smaller than that.
bool isTooSmall(HWND window);
void enforceLeastSize(HWND window);

// Gives the window the stored size, no smaller than the least and no larger than the screen's
// free part, and centres it there. It is not shown.
void applySize(HWND window, const catalogue::Settings& settings);

// How to show it first: a ShowWindow command.
int showCommand(const catalogue::Settings& settings);

// Stores WinState, returns the window to its normal state and stores its outer size.
void storeSizeAndState(HWND window, catalogue::Settings& settings);

}  // namespace mainwindow
