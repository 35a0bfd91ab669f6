// What the file system refuses in the name of a file.
#pragma once

#include <string_view>

namespace base {

inline constexpr std::u16string_view refusedInNames = u"\\/:*?<>|\"";

// What a character typed into a box for a name becomes: itself, or 0 (nothing) when it is refused.
constexpr char16_t nameKey(char16_t typed) {
    return refusedInNames.find(typed) == refusedInNames.npos ? typed : u'\0';
}

}  // namespace base
