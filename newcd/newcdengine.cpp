#include "newcd/newcdengine.h"

#include "base/error.h"
#include "newcd/copyfilter.h"
#include "newcd/copying.h"
#include "newcd/reading.h"
#include "newcd/searchfilter.h"
#include "platform/report.h"

namespace newcd {

template <class Run>
void NewCdEngine::guarded(Run run) {
    try {
        run();
    } catch (const base::Error& error) {
        tools_.messages.show(platform::reportText(error), platform::kReportTitle,
                             platform::MessageFlags::Exclamation);
        run_.scan.ScanAnswer = 1;
    }
}

void NewCdEngine::search(SearchWindow& window) {
    guarded([&] {
        run_.RunMode = Mode::Search;
        readAheadForSearch(tools_.catalogue);
        if (!readMedium(tools_, run_, window)) return;
        if (!filterForSearch(tools_, run_, window)) return;
        window.turnCancelIntoOk();
    });
}

void NewCdEngine::copy(CopyWindow& window) {
    guarded([&] {
        run_.RunMode = Mode::Copy;
        readAheadForCopy(tools_, run_.CopyFilterText);
        if (!readMedium(tools_, run_, window)) return;
        if (!filterForCopy(tools_, run_, window)) return;
        if (!waitForStart(run_, window)) return;
        copySelection(tools_, run_, window);
    });
}

}  // namespace newcd
