// The track list DBList2 and the data control Data1 behind it: a query's rows, read when shown and
// played.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "jet/database.h"
#include "mainwindow/playing.h"
#include "mainwindow/trackinfo.h"
#include "mainwindow/trackquery.h"
#include "platform/system.h"
#include "platform/win32/ui/virtuallist.h"

namespace mainwindow {

// What playing works with.
struct TrackPlayer {
    platform::System& system;
    const catalogue::Settings& settings;
    std::u16string_view AppPath;
};

class FrmMP3Tracks {
  public:
    // Both must outlive the object; the list starts empty.
    FrmMP3Tracks(HWND list, jet::Database& database);

    // Runs the query and shows its rows from the first.
    void show(const TrackQuery& query);
    // Shows nothing, as before a CD is chosen.
    void clear();
    // A click on the list: plays the chosen track, once until another is chosen.
    void DBList2_Click(const TrackPlayer& player);
    // Plays the whole list.
    void DBList2_DblClick(const TrackPlayer& player);
    // Enter, or Ctrl+Enter: the keyboard's click and double click on the row that bears its mark.
    void DBList2_Enter(const TrackPlayer& player, bool wholeList);
    // The details of the track in that row.
    TrackInfo info(size_t row, const platform::System& system, const catalogue::Settings& settings);
    // What is exported: the shown rows and the column of theirs that the list shows.
    jet::Recordset& recordset() { return *recordset_; }
    const std::u16string& displayedField() const { return displayedField_; }

    // Lets the recordset go; the list is not to be shown any more.
    void close();

    size_t count() const { return recordset_->RecordCount(); }
    platform::win32::VirtualList& list() { return list_; }

  private:
    std::u16string rowText(size_t row);
    // Puts the recordset on the list's chosen row; false when there is none.
    bool moveToChosen();
    void playAll(const TrackPlayer& player);

    jet::Database& database_;
    std::u16string displayedField_;
    std::unique_ptr<jet::Recordset> recordset_;
    PlayedTrack played_;
    bool unreadable_ = false;
    platform::win32::VirtualList list_;
};

}  // namespace mainwindow
