// Text files of the program: CR LF lines in the code page, or the whole file in UTF-8 with a
// byte-order mark when a line holds a character that the code page lacks.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/codepage.h"

namespace base {

// The bytes of a file with these lines, each ended by CR LF. A file whose code-page form would
// begin like a byte-order mark is written in UTF-8 too, so decoding is never in doubt.
std::string encodeLines(const std::vector<std::u16string>& lines, const CodePage& codePage);

// The same choice for text that already holds its line ends.
std::string encodeText(std::u16string_view text, const CodePage& codePage);

// The text of a file: UTF-8 when it begins with the byte-order mark, else the code page.
std::u16string decodeText(std::string_view bytes, const CodePage& codePage);

// `text` cut at CR LF, lone CR and lone LF; a final line end opens no further line.
std::vector<std::u16string> splitLines(std::u16string_view text);

}  // namespace base
