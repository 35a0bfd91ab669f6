// Starting other programs.
#pragma once

#include <string_view>

namespace platform {

class Programs {
  public:
    virtual ~Programs() = default;
    // Starts `program` with exactly `commandLine` (which begins with the program's own text),
    // minimised with focus (window style 2), and does not wait for it.
    virtual void start(std::u16string_view program, std::u16string_view commandLine) = 0;
};

}  // namespace platform
