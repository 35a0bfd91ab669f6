// The size of a run's window: no smaller than its controls need, and kept from one run to the next.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>

namespace newcd {

class FrmRunSize {
  public:
    // The settings that keep a window's outer size (twips) and state.
    struct Kept {
        int32_t& height;
        int32_t& width;
        int32_t& state;
    };
    // Gives `window`, not shown yet, its kept size and centres it over its owner.
    FrmRunSize(HWND window, const Kept& kept);

    // After the window is shown: brings it into its kept state.
    void restoreState() const;
    // Before the window goes. Only a window in its normal state has a size worth keeping.
    void keep() const;
    // Holds the window to its least size; an answer is final.
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) const;

  private:
    POINT least() const;

    HWND window_;
    Kept kept_;
};

}  // namespace newcd
