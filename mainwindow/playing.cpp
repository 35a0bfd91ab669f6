#include "mainwindow/playing.h"

#include "base/textfile.h"
#include "scan/cdpath.h"

namespace mainwindow {
namespace {

bool hasPlayer(const catalogue::Settings& settings) {
    return settings.CurrentPlayer != 0;
}

std::u16string realPath(const catalogue::Settings& settings, jet::Recordset& tracks) {
    return scan::RealPath(tracks.Fields(u"Fichier").Text(), settings.CdRomDrive);
}

void startPlayer(platform::Programs& programs, const catalogue::Settings& settings,
                 std::u16string_view file) {
    programs.start(settings.PlayerPath, playerCommandLine(settings.PlayerPath, file));
}

}  // namespace

bool PlayedTrack::clicked(std::optional<jet::RowId> row) {
    if (!row || row == lastClicked_) return false;
    lastClicked_ = row;
    return true;
}

std::u16string playerCommandLine(std::u16string_view playerPath, std::u16string_view file) {
    return std::u16string(playerPath).append(u" \"").append(file).append(u"\"");
}

void playTrack(platform::Programs& programs, const catalogue::Settings& settings,
               jet::Recordset& tracks) {
    if (!hasPlayer(settings)) return;
    startPlayer(programs, settings, realPath(settings, tracks));
}

void playList(platform::Programs& programs, platform::FileSystem& files,
              const base::CodePage& codePage, std::u16string_view AppPath,
              const catalogue::Settings& settings, jet::Recordset& tracks) {
    if (!hasPlayer(settings)) return;
    const std::u16string playlist = std::u16string(AppPath).append(kPlaylistName);
    std::u16string text;
    for (tracks.MoveFirst(); !tracks.Eof(); tracks.MoveNext())
        text += realPath(settings, tracks) + u"\r\n";
    files.replaceFile(playlist, base::encodeText(text, codePage));
    startPlayer(programs, settings, playlist);
}

}  // namespace mainwindow
