// What the user reads when an operation ends in an error that it does not handle itself.
#pragma once

#include <exception>
#include <string>

namespace platform {

inline constexpr char16_t kReportTitle[] = u"Brivantole Audio";

// The report's text: the error's number, its own text and, below, where it happened. An exception
// that is none of the logic's own counts as an internal error.
std::u16string reportText(const std::exception& error);

}  // namespace platform
