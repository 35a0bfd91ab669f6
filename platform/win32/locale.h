// What the running system says of text and numbers.
#pragma once

#include "base/codepage.h"

namespace platform::win32 {

// The system's 8-bit code page; 1252 where the system's own is not one byte to a character.
base::CodePage systemCodePage();

// The decimal separator of the user's regional settings.
char16_t decimalSeparator();

}  // namespace platform::win32
