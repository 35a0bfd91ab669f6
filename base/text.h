// UTF-16 text: trimming, case, conversion. "Characters" are UTF-16 code units throughout.
#pragma once

#include <string>
#include <string_view>

namespace base {

// `text` without the spaces (U+0020 only) at both ends.
std::u16string trim(std::u16string_view text);

// Simple upper case, one code unit to one code unit, as the platform's own simple mapping does
// ("ß" and "ÿ" included: "ß" stays, "ÿ" becomes "Ÿ").
char16_t upper(char16_t character);
std::u16string upper(std::u16string_view text);

// `text` with its first character in upper case; the rest unchanged.
std::u16string upperFirst(std::u16string_view text);

// Lossless for well-formed text; a lone surrogate or a malformed byte becomes U+FFFD.
std::string toUtf8(std::u16string_view text);
std::u16string fromUtf8(std::string_view bytes);

// Where `character` first stands from `from` on; npos when it does not. Looks at several places at
// a time, which the library's own find does for bytes alone.
size_t find(std::u16string_view text, char16_t character, size_t from = 0);

// The last `count` characters of `text`; all of it when it is shorter.
std::u16string_view right(std::u16string_view text, size_t count);

// `text` between double quotation marks, each inner one doubled: a text literal of the queries.
std::u16string quoted(std::u16string_view text);
// The same at the end of `out`.
void appendQuoted(std::u16string& out, std::u16string_view text);

}  // namespace base
