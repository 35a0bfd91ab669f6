// A long operation's pauses for its windows.
#pragma once

#include "platform/breathpace.h"

namespace platform::win32 {

class Breather {
  public:
    // Handles what is waiting in the queue, but no more often than windows need it to look alive;
    // true when it did. Cheap enough to be called for every step of an operation.
    bool breathe();

  private:
    BreathPace pace_;
};

}  // namespace platform::win32
