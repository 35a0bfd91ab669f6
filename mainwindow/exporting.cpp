#include "mainwindow/exporting.h"

#include "base/textfile.h"
#include "scan/cdpath.h"

namespace mainwindow {

std::u16string exportText(jet::Recordset& tracks, const ExportedColumn& column) {
    std::u16string text;
    const jet::Field displayed = tracks.Fields(column.displayedField);
    const bool convert = column.showPath && column.displayedField.starts_with(u"Fichier");
    for (tracks.MoveFirst(); !tracks.Eof(); tracks.MoveNext()) {
        const std::u16string value = displayed.Text();
        text += convert ? scan::RealPath(value, column.cdRomDrive) : value;
        text += u"\r\n";
    }
    return text;
}

void saveExport(platform::FileSystem& files, const base::CodePage& codePage,
                std::u16string_view path, jet::Recordset& tracks, const ExportedColumn& column) {
    files.replaceFile(path, base::encodeText(exportText(tracks, column), codePage));
}

}  // namespace mainwindow
