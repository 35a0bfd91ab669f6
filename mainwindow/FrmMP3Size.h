// The main window's size and state, as the settings keep them (twips).
#pragma once

#include <windows.h>

#include "catalogue/settings.h"

namespace mainwindow {

// The least outer size, device pixels.
POINT leastSize(HWND window);

// Gives the window the stored size within what is possible and centres it. It is not shown.
void applySize(HWND window, const catalogue::Settings& settings);

// How to show it first: a ShowWindow command. A window that was closed while it was minimised comes
// up in its normal state: whoever starts the program wants to see it.
int showCommand(const catalogue::Settings& settings);

// Stores WinState, returns the window to its normal state and stores its outer size.
void storeSizeAndState(HWND window, catalogue::Settings& settings);

}  // namespace mainwindow
