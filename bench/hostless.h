// What stands for the user and the clock where the program's own code is measured under Windows.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "base/error.h"
#include "platform/messages.h"

namespace bench {

// Nobody is there to answer: a message ends the measurement as an error.
class NoMessages : public platform::Messages {
  public:
    platform::Answer show(std::u16string_view text, std::u16string_view /*title*/,
                          int /*flags*/) override {
        throw base::Error(base::ErrorNumber::DeviceIo, std::u16string(text));
    }
};

// Seconds since some fixed moment, by the system's finest clock.
inline double secondsNow() {
    LARGE_INTEGER frequency;
    LARGE_INTEGER now;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&now);
    return static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

}  // namespace bench
