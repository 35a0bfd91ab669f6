// Playing from the track list: which clicks play, and which tracks the player is handed.
#pragma once

#include <optional>
#include <string_view>

#include "base/codepage.h"
#include "catalogue/settings.h"
#include "jet/recordset.h"
#include "platform/filesystem.h"
#include "platform/programs.h"

namespace mainwindow {

// Which clicks on the track list count.
class PlayedTrack {
  public:
    // The list was filled anew: nothing is chosen in it.
    void refreshed() { lastClicked_.reset(); }
    // The row that a click has chosen, if any; true when it is another one than at the click
    // before.
    bool clicked(std::optional<jet::RowId> row);
    // Whether a track has been chosen since the list was filled: only then is the list played.
    bool anyChosen() const { return lastClicked_.has_value(); }

  private:
    std::optional<jet::RowId> lastClicked_;
};

// Starts the current player on the track that is `tracks`' current record. Does nothing without a
// player.
void playTrack(platform::Programs& programs, const catalogue::Settings& settings,
               jet::Recordset& tracks);

// Writes every track of `tracks`, in its order, to the playlist in AppPath, which is replaced, and
// starts the current player on it. Leaves `tracks` at its end. Does nothing without a player.
void playList(platform::Programs& programs, platform::FileSystem& files,
              const base::CodePage& codePage, std::u16string_view AppPath,
              const catalogue::Settings& settings, jet::Recordset& tracks);

}  // namespace mainwindow
