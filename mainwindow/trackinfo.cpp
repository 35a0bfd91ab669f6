#include "mainwindow/trackinfo.h"

#include <variant>

#include "scan/cdpath.h"
#include "scan/sizetext.h"

namespace mainwindow {
namespace {

// A row without a size counts as empty.
double sizeOf(const jet::Value& value) {
    if (const auto* whole = std::get_if<int64_t>(&value)) return static_cast<double>(*whole);
    if (const auto* other = std::get_if<double>(&value)) return *other;
    return 0;
}

}  // namespace

TrackInfo trackInfo(std::u16string_view title, std::u16string_view storedPath, double sizeBytes,
                    std::u16string_view cdName, std::u16string_view cdRomDrive,
                    char16_t decimalSeparator) {
    return {std::u16string(cdName), scan::FormatSize(sizeBytes, decimalSeparator),
            scan::RealPath(storedPath, cdRomDrive), std::u16string(title)};
}

TrackInfo trackInfo(jet::Recordset& tracks, std::u16string_view cdRomDrive,
                    char16_t decimalSeparator) {
    return trackInfo(tracks.Fields(u"Nom").Text(), tracks.Fields(u"Fichier").Text(),
                     sizeOf(tracks.Fields(u"Taille").Value()), tracks.Fields(u"Compilation").Text(),
                     cdRomDrive, decimalSeparator);
}

}  // namespace mainwindow
