// A long operation's pauses for its windows.
#pragma once

#include <windows.h>

namespace platform::win32 {

class Breather {
  public:
    // Handles what is waiting in the queue, but no more often than windows need it to look alive;
    // true when it did. Cheap enough to be called for every step of an operation.
    bool breathe();

  private:
    ULONGLONG last_ = 0;  // milliseconds since the system's start
};

}  // namespace platform::win32
