#include "mainwindow/FrmMP3Size.h"

#include "mainwindow/layout.h"
#include "platform/win32/ui/dpi.h"
#include "platform/win32/ui/windowsize.h"

namespace mainwindow {
namespace {

namespace ui = platform::win32;

// Value of WinState.
constexpr int kMaximised = 2;

}  // namespace

POINT leastSize(HWND window) {
    const int dpi = ui::dpiOf(window);
    return {ui::fromTwips(kMinWidthTwips, dpi), ui::fromTwips(kMinHeightTwips, dpi)};
}

void applySize(HWND window, const catalogue::Settings& settings) {
    ui::applySize(window, {settings.WinHeight, settings.WinWidth, settings.WinState},
                  leastSize(window));
}

int showCommand(const catalogue::Settings& settings) {
    return settings.WinState == kMaximised ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL;
}

void storeSizeAndState(HWND window, catalogue::Settings& settings) {
    settings.WinState = ui::stateOf(window);
    // A window that was minimised from its maximised state passes through that one.
    for (int step = 0; step < 2 && (IsIconic(window) || IsZoomed(window)); ++step)
        ShowWindow(window, SW_RESTORE);
    const ui::StoredSize size = ui::sizeOf(window);
    settings.WinHeight = size.height;
    settings.WinWidth = size.width;
}

}  // namespace mainwindow
