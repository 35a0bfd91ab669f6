#include "newcd/tracktables.h"

#include "base/error.h"

namespace newcd {

void TrackTables::clear() {
    rows_ = {};
}

void TrackTables::store(size_t row, size_t column, size_t track) {
    if (row > kHighestRow) throwTooManyTracks();
    std::vector<uint32_t>& rows = rows_[column];
    if (row >= rows.size()) rows.resize(row + 1, kEmpty);
    rows[row] = static_cast<uint32_t>(track);
}

Track TrackTables::track(size_t row, size_t column) const {
    const std::vector<uint32_t>& rows = rows_[column];
    if (row >= rows.size() || rows[row] == kEmpty) return {};
    return tracks_[rows[row]];
}

std::u16string_view TrackTables::TrackFileTable(size_t row, size_t column) const {
    return track(row, column).path;
}

int64_t TrackTables::TrackSizeTable(size_t row, size_t column) const {
    return track(row, column).size;
}

void throwTooManyTracks() {
    static_assert(TrackTables::kHighestRow == 50000, "the sentence below names the limit");
    throw base::Error(
        base::ErrorNumber::SubscriptOutOfRange,
        u"Le lecteur source contient plus de 50\u00A0000 morceaux\u00A0: c'est trop pour être "
        u"traité en une seule fois.");
}

}  // namespace newcd
