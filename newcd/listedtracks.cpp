#include "newcd/listedtracks.h"

#include "config/playback.h"
#include "scan/cdpath.h"

namespace newcd {
namespace {

size_t column(List list) {
    return list == List::KnownTitlesAndSizes ? 1 : 0;
}

}  // namespace

Track listedTrack(const RunState& run, List list, size_t position) {
    const size_t firstRow = list == List::Copy ? 1 : 0;
    return run.tables.track(position + firstRow, column(list));
}

std::u16string playablePath(const RunState& run, const catalogue::Settings& settings, List list,
                            size_t position) {
    return scan::RealPath(listedTrack(run, list, position).path, settings.CdRomDrive);
}

void playKnownTracks(platform::Programs& programs, platform::FileSystem& files,
                     const base::CodePage& codePage, std::u16string_view AppPath,
                     const catalogue::Settings& settings, const RunState& run, List list) {
    config::Playlist playlist;
    for (int64_t position = 0; position < run.knownCounts[column(list)]; ++position)
        playlist.add(playablePath(run, settings, list, static_cast<size_t>(position)));
    playlist.play(programs, files, codePage, AppPath, settings);
}

}  // namespace newcd
