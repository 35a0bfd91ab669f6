// The mouse pointer while the program is busy.
#pragma once

#include <windows.h>

namespace platform::win32 {

// How much of the program's user is kept waiting.
enum class Busy {
    No,
    InBackground,  // there is something left to click: the arrow with an hourglass
    Wholly,        // the hourglass
};

// The pointer that tells so; none for Busy::No, when each control has its own.
HCURSOR busyCursor(Busy busy);

// Lets the window under the pointer choose the pointer's shape anew, if it is one of this thread's:
// otherwise that happens only when the mouse is moved.
void showPointerAnew();

// Shows the hourglass until the end of the block, in which no messages are handled.
class WaitCursor {
  public:
    WaitCursor() : former_(SetCursor(busyCursor(Busy::Wholly))) {}
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    ~WaitCursor() { SetCursor(former_); }

  private:
    HCURSOR former_;
};

}  // namespace platform::win32
