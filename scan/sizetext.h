// The short French text of a file size or of a total of sizes.
#pragma once

#include <string>

namespace scan {

// `sizeBytes` in "Mo" (from 1048576 bytes on), "Ko" (from 1024 on) or "Octets"; the unit is chosen
// before rounding. Whole megabytes keep a bare trailing `decimalSeparator` ("1, Mo").
std::u16string FormatSize(double sizeBytes, char16_t decimalSeparator);

}  // namespace scan
