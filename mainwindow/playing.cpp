#include "mainwindow/playing.h"

#include "config/playback.h"
#include "scan/cdpath.h"

namespace mainwindow {
namespace {

std::u16string realPath(const catalogue::Settings& settings, jet::Recordset& tracks) {
    return scan::RealPath(tracks.Fields(u"Fichier").Text(), settings.CdRomDrive);
}

}  // namespace

bool PlayedTrack::clicked(std::optional<jet::RowId> row) {
    if (!row || row == lastClicked_) return false;
    lastClicked_ = row;
    return true;
}

void playTrack(platform::Programs& programs, const catalogue::Settings& settings,
               jet::Recordset& tracks) {
    config::playFile(programs, settings, realPath(settings, tracks));
}

void playList(platform::Programs& programs, platform::FileSystem& files,
              const base::CodePage& codePage, std::u16string_view AppPath,
              const catalogue::Settings& settings, jet::Recordset& tracks) {
    // Without a player, no track need be read.
    if (settings.CurrentPlayer == 0) return;
    config::Playlist playlist;
    for (tracks.MoveFirst(); !tracks.Eof(); tracks.MoveNext())
        playlist.add(realPath(settings, tracks));
    playlist.play(programs, files, codePage, AppPath, settings);
}

}  // namespace mainwindow
