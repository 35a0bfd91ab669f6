// Handing files to the current player. Without one (CurrentPlayer 0) nothing here does anything.
#pragma once

#include <string>
#include <string_view>

#include "base/codepage.h"
#include "catalogue/settings.h"
#include "platform/filesystem.h"
#include "platform/programs.h"

namespace config {

// The playlist in the program directory.
inline constexpr std::u16string_view playlistName = u"Brivantole.m3u";

// What the player is started with: its path, a blank, and the file between quotation marks.
std::u16string playerCommandLine(std::u16string_view playerPath, std::u16string_view file);

// Starts the current player on one file.
void playFile(platform::Programs& programs, const catalogue::Settings& settings,
              std::u16string_view path);

// Files to be played one after the other, by their real paths.
class Playlist {
  public:
    void add(std::u16string_view path) { text_.append(path).append(u"\r\n"); }

    // Replaces the playlist in `AppPath` (which ends with a backslash) by this one, and starts the
    // current player on it.
    void play(platform::Programs& programs, platform::FileSystem& files,
              const base::CodePage& codePage, std::u16string_view AppPath,
              const catalogue::Settings& settings) const;

  private:
    std::u16string text_;
};

}  // namespace config
