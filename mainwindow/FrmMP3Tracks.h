// The track list DBList2 and the data control Data1 behind it: a query's rows, read when shown.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "jet/database.h"
#include "mainwindow/trackquery.h"
#include "platform/win32/ui/virtuallist.h"

namespace mainwindow {

class FrmMP3Tracks {
  public:
    // Both must outlive the object; the list starts empty.
    FrmMP3Tracks(HWND list, jet::Database& database);

    // Runs the query and shows its rows from the first.
    void show(const TrackQuery& query);
    // Shows nothing, as before a CD is chosen.
    void clear();
    // Lets the recordset go; the list is not to be shown any more.
    void close();

    size_t count() const { return recordset_->RecordCount(); }
    // The column of the catalogue that the list shows.
    const std::u16string& displayedField() const { return displayedField_; }
    jet::Recordset& recordset() { return *recordset_; }
    platform::win32::VirtualList& list() { return list_; }

  private:
    std::u16string rowText(size_t row);

    jet::Database& database_;
    std::u16string displayedField_;
    std::unique_ptr<jet::Recordset> recordset_;
    bool unreadable_ = false;
    platform::win32::VirtualList list_;
};

}  // namespace mainwindow
