// What the catalogue stores about a music file besides its path: a title and the size.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/codepage.h"
#include "platform/filesystem.h"

namespace scan {

// The title of a file that is not what its extension claims, or that cannot be read: no row.
inline constexpr std::u16string_view kTrackError = u"@//erreur";

struct TrackAnalysis {
    std::u16string TrackTitle = std::u16string(kTrackError);
    int64_t TrackSize = 0;  // bytes; 0 when the file cannot even be opened

    bool failed() const { return TrackTitle == kTrackError; }
};

// Reads the title from the file's own tag or header where its extension has one, else makes it
// from the file's name. Title bytes are characters of `codePage`. Never throws for what the file
// holds or for a failing medium: both give kTrackError. Opens the file once and reads few blocks,
// whatever its size.
TrackAnalysis AnalyseTrack(platform::FileSystem& files, const base::CodePage& codePage,
                           std::u16string_view path);

}  // namespace scan
