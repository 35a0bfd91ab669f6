// The track list as plain text, one line per track.
#pragma once

#include <string>
#include <string_view>

#include "base/codepage.h"
#include "jet/recordset.h"
#include "platform/filesystem.h"

namespace mainwindow {

// What the list displays: the column, and whether the path box is checked, so that the CD mark of a
// path is turned into the present drive. The box may have been checked since the list was made: a
// title stays as it is, also one that begins with a bracket.
struct ExportedColumn {
    std::u16string_view displayedField;
    bool showPath = false;
    std::u16string_view cdRomDrive;  // "E:"
};

// The displayed values of all `tracks`, in their order, each ended by CR LF; empty without tracks.
// Leaves `tracks` at its end.
std::u16string exportText(jet::Recordset& tracks, const ExportedColumn& column);

// Replaces the file at `path` by that text.
void saveExport(platform::FileSystem& files, const base::CodePage& codePage,
                std::u16string_view path, jet::Recordset& tracks, const ExportedColumn& column);

}  // namespace mainwindow
