// What the track list shows: the query, the displayed column and the count, made from what the
// controls above and below the list say.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "catalogue/settings.h"

namespace mainwindow {

// Rows of the CD list that are no CD.
inline constexpr int kNoCdRow = -1;
inline constexpr int kAllCdsRow = 0;  // "*** TOUS LES TITRES ***"

// The controls at the moment of a refresh.
struct TrackListState {
    int cdRow = kNoCdRow;
    std::u16string cdName;      // of that row; not used for the rows above
    std::u16string searchText;  // as in the box
    bool sortByName = false;
    bool sortByPath = false;
    bool sortBySize = false;  // of several set ones the last counts
    bool showPath = false;
    bool showCdName = false;
};

struct TrackQuery {
    std::u16string recordSource;
    std::u16string displayedField;
    bool operator==(const TrackQuery&) const = default;
};

// The query over all extensions of `settings` that are shown; nothing when no row of the CD list
// is chosen, for then the list stays as it is. Texts stand in the query as quoted literals; the
// search text's wildcard characters act.
std::optional<TrackQuery> RefreshTrackList(const TrackListState& state,
                                           const catalogue::Settings& settings);

// The record source that no track matches: the list before a CD is chosen and after a deletion.
std::u16string emptyTrackListQuery();

// The label beside the list (" 12 morceaux."; "Aucun morceau." for none).
std::u16string countLabel(size_t tracks);

}  // namespace mainwindow
