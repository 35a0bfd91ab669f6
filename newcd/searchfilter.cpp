#include "newcd/searchfilter.h"

#include "newcd/copyrules.h"
#include "newcd/filterpass.h"
#include "newcd/summaries.h"
#include "scan/sizetext.h"

namespace newcd {
namespace {

bool knows(const RunTools& tools, std::u16string_view query) {
    return !tools.catalogue.OpenRecordset(query)->Eof();
}

void addKnown(RunState& run, SearchWindow& window, Method method, size_t index) {
    const bool byTitle = method == Method::SameTitle;
    const size_t column = byTitle ? 0 : 1;
    const Track track = run.workList[index];
    window.addKnown(method, track.title);
    run.tables.store(static_cast<size_t>(run.knownCounts[column]++), column, index);
    run.SizeSums[byTitle ? SizeOfKnownTitles : SizeOfKnownTitlesAndSizes] += track.size;
}

MethodResult methodResult(RunState& run, size_t column, SizeIndex sum, char16_t separator) {
    const auto text = [&](int64_t size) {
        return scan::FormatSize(static_cast<double>(size), separator);
    };
    run.SizeTexts[sum] = text(run.SizeSums[sum]);
    return {.known = run.knownCounts[column],
            .knownSize = run.SizeTexts[sum],
            .newSize = text(run.SizeSums[SizeOfAll] - run.SizeSums[sum])};
}

}  // namespace

void readAheadForSearch(jet::Database& catalogue) {
    // It asks for all that the query for the title alone does.
    catalogue.readAhead(knownTitleAndSizeQuery({}, {}, 0));
}

bool filterForSearch(const RunTools& tools, RunState& run, SearchWindow& window) {
    const auto take = [&](size_t index) {
        const Track track = run.workList[index];
        run.SizeSums[SizeOfAll] += track.size;
        const std::u16string_view type = typeOfPath(tools.settings, track.path);
        if (!knows(tools, knownTitleQuery(type, track.title))) return;
        addKnown(run, window, Method::SameTitle, index);
        if (knows(tools, knownTitleAndSizeQuery(type, track.title, track.size)))
            addKnown(run, window, Method::SameTitleAndSize, index);
    };
    if (!filterTracks(run, window, take)) return false;
    const char16_t separator = tools.decimalSeparator;
    run.SizeTexts[SizeOfAll] =
        scan::FormatSize(static_cast<double>(run.SizeSums[SizeOfAll]), separator);
    window.showProgress(searchSummary(run.FoundCount,
                                      methodResult(run, 0, SizeOfKnownTitles, separator),
                                      methodResult(run, 1, SizeOfKnownTitlesAndSizes, separator)));
    return true;
}

}  // namespace newcd
