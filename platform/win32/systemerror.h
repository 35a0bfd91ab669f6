// The system's failures as errors of the logic.
#pragma once

#include <windows.h>

#include <string_view>

#include "base/error.h"

namespace platform::win32 {

// The number that stands for the system error `code`; DeviceIo for those without one of their own.
base::ErrorNumber errorNumber(DWORD code);

// The error for `code` (a GetLastError value) with the system's own text, in the user's language
// where the system has it. `place` says where it happened, most often a path.
base::Error systemError(DWORD code, std::u16string_view place = {});

}  // namespace platform::win32
