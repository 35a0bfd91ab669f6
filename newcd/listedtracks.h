// The tracks behind the windows' lists: where they can be played from, and playing them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/codepage.h"
#include "catalogue/settings.h"
#include "newcd/runstate.h"
#include "platform/filesystem.h"
#include "platform/programs.h"

namespace newcd {

// The check list of a copy, and the two lists of a search.
enum class List { Copy, KnownTitles, KnownTitlesAndSizes };

// The track at `position` (from 0) of `list`; empty beyond its end.
Track listedTrack(const RunState& run, List list, size_t position);

// The path that a player is given for it.
std::u16string playablePath(const RunState& run, const catalogue::Settings& settings, List list,
                            size_t position);

// Writes every track of a list of the search to the playlist in AppPath, in list order, and starts
// the current player on it; without one nothing happens.
void playKnownTracks(platform::Programs& programs, platform::FileSystem& files,
                     const base::CodePage& codePage, std::u16string_view AppPath,
                     const catalogue::Settings& settings, const RunState& run, List list);

}  // namespace newcd
