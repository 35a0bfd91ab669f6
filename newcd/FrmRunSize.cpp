#include "newcd/FrmRunSize.h"

#include "newcd/runlayout.h"
#include "platform/win32/ui/dpi.h"
#include "platform/win32/ui/place.h"
#include "platform/win32/ui/windowsize.h"

namespace newcd {
namespace {

namespace ui = platform::win32;

// Posted to the window when its size has become smaller than the least: a window manager that is
// just telling of a new size would not hear of another.
constexpr UINT kEnforceLeastSize = WM_APP;

constexpr int32_t kNormal = 0;
constexpr int32_t kMaximised = 2;

}  // namespace

FrmRunSize::FrmRunSize(HWND window, const Kept& kept) : window_(window), kept_(kept) {
    const auto usual = [](int32_t twips, int designPixels) {
        return twips > 0 ? twips : ui::toTwips(designPixels, platform::kDesignDpi);
    };
    ui::applySize(window_,
                  {usual(kept_.height, kUsualRunHeight), usual(kept_.width, kUsualRunWidth), 0},
                  least());
    ui::placeOverOwner(window_);
}

POINT FrmRunSize::least() const {
    const int dpi = ui::dpiOf(window_);
    return {ui::scaled(kLeastRunWidth, dpi), ui::scaled(kLeastRunHeight, dpi)};
}

void FrmRunSize::restoreState() const {
    if (kept_.state == kMaximised) ShowWindow(window_, SW_SHOWMAXIMIZED);
}

void FrmRunSize::keep() const {
    const ui::StoredSize size = ui::sizeOf(window_);
    kept_.state = size.state;
    if (size.state != kNormal) return;
    kept_.height = size.height;
    kept_.width = size.width;
}

std::optional<LRESULT> FrmRunSize::onMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
    switch (message) {
        case WM_SIZING:
            ui::keepLeastSize(least(), wParam, *reinterpret_cast<RECT*>(lParam));
            return TRUE;
        case WM_SIZE:
            if (ui::isSmaller(window_, least())) PostMessageW(window_, kEnforceLeastSize, 0, 0);
            return std::nullopt;
        case kEnforceLeastSize:
            ui::enforceLeastSize(window_, least());
            return 0;
        default:
            return std::nullopt;
    }
}

}  // namespace newcd
