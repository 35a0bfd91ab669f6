#include "newcd/filterpass.h"

#include "newcd/summaries.h"
#include "scan/percentage.h"

namespace newcd {

bool filterTracks(RunState& run, RunWindow& window, const std::function<void(size_t)>& take) {
    run.FoundCount = 0;
    run.SelectedCount = 0;
    scan::Percentage percentage(run.scan.ScanFileCount);
    for (size_t index = 0; index < run.workList.count(); ++index) {
        ++run.FoundCount;
        take(index);
        if (const auto percent = percentage.change(run.FoundCount)) {
            window.showProgress(filterProgress(*percent));
            window.showAdvance(run.FoundCount, run.scan.ScanFileCount);
        }
        window.yield();
        if (run.stopRequested()) return false;
    }
    window.showAdvance(0, 0);
    return true;
}

}  // namespace newcd
