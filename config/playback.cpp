#include "config/playback.h"

#include "base/textfile.h"

namespace config {

std::u16string playerCommandLine(std::u16string_view playerPath, std::u16string_view file) {
    return std::u16string(playerPath).append(u" \"").append(file).append(u"\"");
}

void playFile(platform::Programs& programs, const catalogue::Settings& settings,
              std::u16string_view path) {
    if (settings.CurrentPlayer == 0) return;
    programs.start(settings.PlayerPath, playerCommandLine(settings.PlayerPath, path));
}

void Playlist::play(platform::Programs& programs, platform::FileSystem& files,
                    const base::CodePage& codePage, std::u16string_view AppPath,
                    const catalogue::Settings& settings) const {
    if (settings.CurrentPlayer == 0) return;
    const std::u16string file = std::u16string(AppPath).append(playlistName);
    files.replaceFile(file, base::encodeText(text_, codePage));
    playFile(programs, settings, file);
}

}  // namespace config
