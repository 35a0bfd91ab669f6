// The edge between the logic's UTF-16 text and the system's. Copies rather than casts: the two
// character types may not alias, and no call here sits in a loop over rows.
#pragma once

#include <string>
#include <string_view>

namespace platform::win32 {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "the system's wide text is UTF-16");

inline std::wstring toWide(std::u16string_view text) {
    return {text.begin(), text.end()};
}
inline std::u16string fromWide(std::wstring_view text) {
    return {text.begin(), text.end()};
}

}  // namespace platform::win32
