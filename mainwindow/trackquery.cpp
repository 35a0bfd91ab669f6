#include "mainwindow/trackquery.h"

#include "base/number.h"
#include "base/text.h"

namespace mainwindow {
namespace {

std::u16string cdClause(const TrackListState& state) {
    if (state.cdRow == kAllCdsRow) return {};
    return u" (Compilation=" + base::quoted(state.cdName) + u")";
}

std::u16string typeClause(const catalogue::Settings& settings) {
    std::u16string clause;
    for (int i = 0; i <= settings.NbExtensions; ++i) {
        if (settings.ExtensionFlags(i, catalogue::shownColumn) != 1) continue;
        if (!clause.empty()) clause += u" or ";
        clause += u"Type=" + base::quoted(settings.ExtensionList(i));
    }
    return clause;
}

std::u16string searchClause(const TrackListState& state) {
    const std::u16string text = base::trim(state.searchText);
    if (text.empty()) return {};
    const std::u16string pattern = base::quoted(u"*" + text + u"*");
    return u" (Nom LIKE " + pattern + u" or Fichier LIKE " + pattern + u")";
}

std::u16string sortClause(const TrackListState& state) {
    if (state.sortBySize) return u" ORDER BY Taille";
    if (state.sortByPath) return u" ORDER BY Fichier";
    if (state.sortByName) return u" ORDER BY Nom";
    return {};
}

std::u16string recordSource(const TrackListState& state, const catalogue::Settings& settings) {
    std::u16string types = typeClause(settings);
    if (types.empty()) return u"SELECT * FROM Listdonnees Where Type=" + base::quoted(u"X");
    std::u16string cd = cdClause(state);
    const std::u16string search = searchClause(state);
    if (!cd.empty()) types = u"(" + types + u") and";
    if (!search.empty()) {
        cd += u" and";
        if (!types.starts_with(u'(')) types = u"(" + types + u")";
    }
    return u"SELECT * FROM Listdonnees WHERE " + types + cd + search + sortClause(state);
}

std::u16string displayedField(const TrackListState& state) {
    std::u16string field = state.showPath ? u"Fichier" : u"Nom";
    if (state.showCdName) field += u"compil";
    return field;
}

}  // namespace

std::optional<TrackQuery> RefreshTrackList(const TrackListState& state,
                                           const catalogue::Settings& settings) {
    if (state.cdRow == kNoCdRow) return std::nullopt;
    return TrackQuery{recordSource(state, settings), displayedField(state)};
}

std::u16string emptyTrackListQuery() {
    return u"SELECT * FROM Listdonnees WHERE Compilation=" + base::quoted(u"X");
}

std::u16string countLabel(size_t tracks) {
    if (tracks == 0) return u"Aucun morceau.";
    std::u16string label = base::strNumber(static_cast<int64_t>(tracks)) + u" morceau";
    if (tracks > 1) label += u'x';
    return label + u".";
}

}  // namespace mainwindow
