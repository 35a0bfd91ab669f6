// The dots per inch of windows; platform/pixels.h turns sizes into them.
#pragma once

#include <windows.h>

#include "platform/pixels.h"

namespace platform::win32 {

using platform::fromTwips;
using platform::scaled;
using platform::toTwips;
using platform::unscaled;

// The dots per inch at which the window is shown now. Systems before Windows 10 have one value for
// all windows.
int dpiOf(HWND window);

// From now on the dialog's own code alone answers a change of its dots per inch; the dialog
// manager would otherwise rescale every control on top of it.
void ownDpiChanges(HWND dialog);

}  // namespace platform::win32
