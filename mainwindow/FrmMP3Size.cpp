#include "mainwindow/FrmMP3Size.h"

#include <algorithm>

#include "mainwindow/layout.h"
#include "platform/placement.h"
#include "platform/win32/ui/dpi.h"
#include "platform/win32/ui/place.h"

namespace mainwindow {
namespace {

namespace ui = platform::win32;

// Values of WinState.
constexpr int kNormal = 0;
constexpr int kMinimised = 1;
constexpr int kMaximised = 2;

}  // namespace

POINT leastSize(HWND window) {
    const int dpi = ui::dpiOf(window);
    return {ui::fromTwips(kMinWidthTwips, dpi), ui::fromTwips(kMinHeightTwips, dpi)};
}

// Not by WM_GETMINMAXINFO: a window manager that sizes windows by itself, as under Wine, never
// learns of such a limit and would show a part of the window only.
void keepLeastSize(HWND window, WPARAM edge, RECT& frame) {
    const POINT least = leastSize(window);
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

bool isTooSmall(HWND window) {
    if (IsIconic(window) || IsZoomed(window)) return false;
    const POINT least = leastSize(window);
    const platform::Box box = ui::windowBox(window);
    return box.width < least.x || box.height < least.y;
}

void enforceLeastSize(HWND window) {
    const POINT least = leastSize(window);
    platform::Box box = ui::windowBox(window);
    box.width = std::max<int>(box.width, least.x);
    box.height = std::max<int>(box.height, least.y);
    ui::moveWindow(window, box);
}

void applySize(HWND window, const catalogue::Settings& settings) {
    const int dpi = ui::dpiOf(window);
    const POINT least = leastSize(window);
    const platform::Box area = ui::workAreaOf(window);
    const auto size = [dpi](int twips, int smallest, int largest) {
        return std::max(std::min(ui::fromTwips(twips, dpi), largest), smallest);
    };
    ui::moveWindow(window, platform::clamped(
                               platform::centred(area, size(settings.WinWidth, least.x, area.width),
                                                 size(settings.WinHeight, least.y, area.height)),
                               area));
}

int showCommand(const catalogue::Settings& settings) {
    switch (settings.WinState) {
        case kMinimised:
            return SW_SHOWMINIMIZED;
        case kMaximised:
            return SW_SHOWMAXIMIZED;
        default:
            return SW_SHOWNORMAL;
    }
}

void storeSizeAndState(HWND window, catalogue::Settings& settings) {
    settings.WinState = IsIconic(window) ? kMinimised : IsZoomed(window) ? kMaximised : kNormal;
    // A window that was minimised from its maximised state passes through that one.
    for (int step = 0; step < 2 && (IsIconic(window) || IsZoomed(window)); ++step)
        ShowWindow(window, SW_RESTORE);
    const int dpi = ui::dpiOf(window);
    const platform::Box box = ui::windowBox(window);
    settings.WinHeight = ui::toTwips(box.height, dpi);
    settings.WinWidth = ui::toTwips(box.width, dpi);
}

}  // namespace mainwindow
