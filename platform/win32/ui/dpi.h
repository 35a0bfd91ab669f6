// Sizes. Every pixel value in the program is written for 96 dots per inch and becomes device
// pixels here and nowhere else; the main window's outer size is stored in twips (1440 per inch).
#pragma once

#include <windows.h>

namespace platform::win32 {

inline constexpr int kDesignDpi = 96;
inline constexpr int kTwipsPerInch = 1440;

// The dots per inch at which the window is shown now. Systems before Windows 10 have one value for
// all windows.
int dpiOf(HWND window);

// Design pixels to device pixels and back, rounded to the nearest.
int scaled(int designPixels, int dpi);
int unscaled(int devicePixels, int dpi);

int toTwips(int devicePixels, int dpi);
int fromTwips(int twips, int dpi);

// From now on the dialog's own code alone answers a change of its dots per inch; the dialog
// manager would otherwise rescale every control on top of it.
void ownDpiChanges(HWND dialog);

}  // namespace platform::win32
