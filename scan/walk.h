// The walk over a whole drive that lists its music files.
#pragma once

#include <string_view>

#include "base/codepage.h"
#include "catalogue/settings.h"
#include "platform/filesystem.h"
#include "platform/messages.h"
#include "scan/scanstate.h"
#include "scan/scanview.h"

namespace scan {

// The scratch file in the program directory that a walk writes and the analysis reads.
inline constexpr std::u16string_view kTrackListName = u"tmp.tmp";

// What a walk works with; all of it must outlive the walk.
struct WalkTools {
    platform::FileSystem& files;
    platform::Messages& messages;
    const base::CodePage& codePage;
};

// Writes the full path of every music file of `drive` ("D:\"), one per line, to `listFile`, which
// is replaced: depth first, a folder's files before its subfolders, in the platform's order. Counts
// them in state.ScanFileCount.
//
// A drive that cannot be listed at all throws. Any later error but a file that has vanished (53) is
// put to the user: Retry repeats the failing step; Cancel sets state.ScanAnswer to 1, the step is
// left out and the walk goes on. A folder that is its own ancestor through a junction is not
// entered.
void ListMusicFiles(const WalkTools& tools, const catalogue::Settings& settings, ScanState& state,
                    WalkView& view, std::u16string_view listFile, std::u16string_view drive);

}  // namespace scan
