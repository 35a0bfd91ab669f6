#include "platform/win32/ui/windowsize.h"

#include <algorithm>

#include "platform/win32/ui/dpi.h"
#include "platform/win32/ui/place.h"

namespace platform::win32 {
namespace {

constexpr int32_t kNormal = 0;
constexpr int32_t kMinimised = 1;
constexpr int32_t kMaximised = 2;

}  // namespace

int32_t stateOf(HWND window) {
    return IsIconic(window) ? kMinimised : IsZoomed(window) ? kMaximised : kNormal;
}

StoredSize sizeOf(HWND window) {
    const int dpi = dpiOf(window);
    const Box box = windowBox(window);
    return {toTwips(box.height, dpi), toTwips(box.width, dpi), stateOf(window)};
}

void applySize(HWND window, const StoredSize& size, POINT least) {
    const int dpi = dpiOf(window);
    const Box area = workAreaOf(window);
    const int width = std::max<int>(fromTwips(size.width, dpi), least.x);
    const int height = std::max<int>(fromTwips(size.height, dpi), least.y);
    moveWindow(window, clamped(centred(area, width, height), area));
}

// Not by WM_GETMINMAXINFO: a window manager that sizes windows by itself, as under Wine, never
// learns of such a limit and would show a part of the window only.
void keepLeastSize(POINT least, WPARAM edge, RECT& frame) {
    const bool fromLeft = edge == WMSZ_LEFT || edge == WMSZ_TOPLEFT || edge == WMSZ_BOTTOMLEFT;
    const bool fromTop = edge == WMSZ_TOP || edge == WMSZ_TOPLEFT || edge == WMSZ_TOPRIGHT;
    if (frame.right - frame.left < least.x) {
        if (fromLeft) {
            frame.left = frame.right - least.x;
        } else {
            frame.right = frame.left + least.x;
        }
    }
    if (frame.bottom - frame.top < least.y) {
        if (fromTop) {
            frame.top = frame.bottom - least.y;
        } else {
            frame.bottom = frame.top + least.y;
        }
    }
}

bool isSmaller(HWND window, POINT least) {
    if (stateOf(window) != kNormal) return false;
    const Box box = windowBox(window);
    return box.width < least.x || box.height < least.y;
}

void enforceLeastSize(HWND window, POINT least) {
    Box box = windowBox(window);
    box.width = std::max<int>(box.width, least.x);
    box.height = std::max<int>(box.height, least.y);
    moveWindow(window, box);
}

}  // namespace platform::win32
