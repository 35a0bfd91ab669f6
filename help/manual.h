// The manual, an RTF document beside the program.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/filesystem.h"
#include "platform/messages.h"

namespace help {

inline constexpr std::u16string_view kManualName = u"Brivantole.rtf";

// The bytes of the manual in the program folder `AppPath` (with a trailing backslash). When there
// is none, or it is no RTF document, the user is told so and nothing is given.
std::optional<std::string> loadManual(platform::FileSystem& files, platform::Messages& messages,
                                      std::u16string_view AppPath);

}  // namespace help
