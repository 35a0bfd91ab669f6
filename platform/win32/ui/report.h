// The report box: the end of every handler that fails.
#pragma once

#include <exception>

namespace platform::win32 {

// Shows the report of `error` over the active window.
void showReport(const std::exception& error);

// The same for the exception being handled; for catch (...) at the border to the system.
void reportCurrentException() noexcept;

}  // namespace platform::win32
