// Which files are music files, and of which type a track is.
#pragma once

#include <string>
#include <string_view>

#include "catalogue/settings.h"

namespace scan {

// Whether `path`, case aside, ends with a dot and one of the extensions in use.
bool IsMusicFile(const catalogue::Settings& settings, std::u16string_view path);

// The first extension in use that `path`, case aside, ends with, the dot aside; null when there is
// none. It belongs to `settings`.
const std::u16string* TypeOfTrack(const catalogue::Settings& settings, std::u16string_view path);

}  // namespace scan
