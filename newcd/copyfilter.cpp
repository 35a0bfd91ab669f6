#include "newcd/copyfilter.h"

#include <cassert>
#include <optional>

#include "newcd/copyrules.h"
#include "newcd/filterpass.h"
#include "newcd/selection.h"
#include "newcd/summaries.h"

namespace newcd {
namespace {

bool isInCatalogue(const RunTools& tools, std::u16string_view filterText, const Track& track) {
    const CatalogueRule rule = catalogueRule(tools.settings);
    if (rule == CatalogueRule::CopyAll) return false;
    const std::u16string query = catalogueRuleQuery(rule, typeOfPath(tools.settings, track.path),
                                                    filterText, track.title, track.size);
    return !tools.catalogue.OpenRecordset(query)->Eof();
}

bool isMarked(const RunTools& tools, MarkerRows* markers, const Track& track) {
    const DuplicateRule rule = duplicateRule(tools.settings);
    if (rule == DuplicateRule::CopyAll) return false;
    assert(markers != nullptr);
    return markers->has(rule, track);
}

}  // namespace

bool keepsTrack(const RunTools& tools, std::u16string_view filterText, MarkerRows* markers,
                const Track& track) {
    const bool keep = typesAllowCopy(tools.settings, track.path) &&
                      matchesFilterText(filterText, track.title, track.path) &&
                      !isInCatalogue(tools, filterText, track) && !isMarked(tools, markers, track);
    if (keep && markers != nullptr) markers->add(track);
    return keep;
}

void readAheadForCopy(const RunTools& tools, std::u16string_view filterText) {
    const CatalogueRule rule = catalogueRule(tools.settings);
    if (rule == CatalogueRule::CopyAll) return;
    tools.catalogue.readAhead(catalogueRuleQuery(rule, {}, filterText, {}, 0));
}

bool filterForCopy(const RunTools& tools, RunState& run, CopyWindow& window) {
    // Markers of an earlier run would count as duplicates of this one.
    deleteMarkerRows(tools.catalogue);
    {
        std::optional<MarkerRows> markers;
        if (duplicateRule(tools.settings) != DuplicateRule::CopyAll)
            markers.emplace(tools.catalogue);
        const auto take = [&](size_t index) {
            const Track track = run.workList[index];
            const bool keep =
                keepsTrack(tools, run.CopyFilterText, markers ? &*markers : nullptr, track);
            run.tables.store(static_cast<size_t>(run.FoundCount), 0, index);
            addToSelection(run, track.size, keep);
            window.addTrack(track.title, keep);
        };
        if (!filterTracks(run, window, take)) return false;
    }
    window.showProgress(selectionSummary(copyResult(run, tools.decimalSeparator)));
    return true;
}

}  // namespace newcd
