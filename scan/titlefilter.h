// The characters that a title taken from a tag or a header may keep.
#pragma once

#include <string>
#include <string_view>

namespace scan {

// `title` with double quotation marks as apostrophes and every other character outside the allowed
// set as a space, then trimmed and begun in upper case. Runs of spaces inside stay as long as they
// are; the result is empty when nothing was allowed.
std::u16string FilterTitle(std::u16string_view title);

}  // namespace scan
