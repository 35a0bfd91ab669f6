// The outer size of windows that can be resized, and as the settings keep it.
#pragma once

#include <windows.h>

#include <cstdint>

namespace platform::win32 {

// A size and a state as the settings keep them.
struct StoredSize {
    int32_t height = 0;  // twips, of the normal state
    int32_t width = 0;
    int32_t state = 0;  // 0 normal, 1 minimised, 2 maximised
};

// What a window's state is called in a StoredSize.
int32_t stateOf(HWND window);

// The present size and state.
StoredSize sizeOf(HWND window);

// Gives the window the stored size, no smaller than `least` (device pixels) and no larger than the
// screen's free part, and centres it there. It is not shown.
void applySize(HWND window, const StoredSize& size, POINT least);

// Keeps the frame that the user is dragging by `edge` (of WM_SIZING) from becoming smaller.
void keepLeastSize(POINT least, WPARAM edge, RECT& frame);

// Whether the window is in its normal state and smaller than that.
bool isSmaller(HWND window, POINT least);
void enforceLeastSize(HWND window, POINT least);

}  // namespace platform::win32
