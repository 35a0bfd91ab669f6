// Owners of the user interface's handles: each handle is released exactly once, by the owner that
// holds it last.
#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace platform::win32 {

struct HandleCloser {
    void operator()(HFONT font) const { DeleteObject(font); }
    void operator()(HBRUSH brush) const { DeleteObject(brush); }
    void operator()(HICON icon) const { DestroyIcon(icon); }
    void operator()(HMENU menu) const { DestroyMenu(menu); }
    void operator()(HACCEL table) const { DestroyAcceleratorTable(table); }
};

template <typename Handle>
using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, HandleCloser>;

using Font = Owned<HFONT>;
using Brush = Owned<HBRUSH>;
using Icon = Owned<HICON>;
using Menu = Owned<HMENU>;
using Accelerators = Owned<HACCEL>;

// A device context of a window, given back at the end of the block.
class WindowDc {
  public:
    explicit WindowDc(HWND window) : window_(window), dc_(GetDC(window)) {}
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    ~WindowDc() { ReleaseDC(window_, dc_); }
    HDC get() const { return dc_; }

  private:
    HWND window_;
    HDC dc_;
};

// Selects an object into a device context and puts the former one back at the end of the block.
class Selection {
  public:
    Selection(HDC dc, HGDIOBJ object) : dc_(dc), former_(SelectObject(dc, object)) {}
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;
    ~Selection() { SelectObject(dc_, former_); }

  private:
    HDC dc_;
    HGDIOBJ former_;
};

}  // namespace platform::win32
