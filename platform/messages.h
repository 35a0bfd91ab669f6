// Modal message boxes, as the logic sees them.
#pragma once

#include <string_view>

namespace platform {

// Buttons, icon and default button in the classic sum; the values are those of the system.
namespace MessageFlags {
inline constexpr int OkOnly = 0, YesNo = 4, RetryCancel = 5;
inline constexpr int Question = 32, Exclamation = 48, Information = 64;
inline constexpr int DefaultSecond = 256;
}  // namespace MessageFlags

enum class Answer { Ok = 1, Cancel = 2, Retry = 4, Yes = 6, No = 7 };

class Messages {
  public:
    virtual ~Messages() = default;
    // Shows the box over the active window and gives the button that closed it.
    virtual Answer show(std::u16string_view text, std::u16string_view title, int flags) = 0;
};

}  // namespace platform
