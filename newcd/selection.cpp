#include "newcd/selection.h"

#include "scan/sizetext.h"

namespace newcd {
namespace {

void count(RunState& run, int64_t size, bool checked) {
    if (checked) {
        ++run.SelectedCount;
        run.SizeSums[SizeOfSelected] += size;
    } else {
        --run.SelectedCount;
        run.SizeSums[SizeOfSelected] -= size;
    }
}

}  // namespace

void addToSelection(RunState& run, int64_t size, bool checked) {
    run.SizeSums[SizeOfAll] += size;
    run.checked.push_back(checked);
    if (checked) count(run, size, true);
}

void checkTrack(RunState& run, size_t position, bool checked) {
    if (position >= run.checked.size() || run.checked[position] == checked) return;
    run.checked[position] = checked;
    count(run, run.tables.TrackSizeTable(position + 1, 0), checked);
}

CopyResult copyResult(RunState& run, char16_t decimalSeparator) {
    for (const SizeIndex index : {SizeOfAll, SizeOfSelected}) {
        run.SizeTexts[index] =
            scan::FormatSize(static_cast<double>(run.SizeSums[index]), decimalSeparator);
    }
    return {.selected = run.SelectedCount,
            .selectedSize = run.SizeTexts[SizeOfSelected],
            .found = run.FoundCount,
            .foundSize = run.SizeTexts[SizeOfAll]};
}

}  // namespace newcd
