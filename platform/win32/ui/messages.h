// The system's message boxes.
#pragma once

#include "platform/messages.h"

namespace platform::win32 {

class Win32Messages : public Messages {
  public:
    Answer show(std::u16string_view text, std::u16string_view title, int flags) override;
};

}  // namespace platform::win32
