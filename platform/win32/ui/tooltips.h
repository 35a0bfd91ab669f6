// Tool tips of one window's controls.
#pragma once

#include <windows.h>

#include <string_view>

namespace platform::win32 {

class Tooltips {
  public:
    // The tips live as long as `window`, which destroys them with itself.
    explicit Tooltips(HWND window);
    // "&" marks are not shown. The empty text takes the tip away.
    void set(HWND control, std::u16string_view text);

  private:
    HWND window_;
    HWND tips_;
};

}  // namespace platform::win32
