// What the user may call a CD. base::nameKey says which characters the box takes.
#pragma once

#include <cstddef>
#include <string_view>

#include "base/text.h"

namespace scan {

// Characters: what the column of the CD's name holds.
inline constexpr size_t kLongestCdName = 255;

// Whether the text in the box names a CD, so that it can be added.
inline bool isCdName(std::u16string_view text) {
    return !base::trim(text).empty();
}

}  // namespace scan
