#include "newcd/reading.h"

#include <string>

#include "newcd/summaries.h"
#include "scan/percentage.h"
#include "scan/trackanalysis.h"
#include "scan/tracklistfile.h"
#include "scan/walk.h"

namespace newcd {
namespace {

// The rows that the tables have for this mode: the copy list is counted from 1.
size_t mostTracks(Mode mode) {
    return mode == Mode::Copy ? TrackTables::kHighestRow : TrackTables::kHighestRow + 1;
}

// The walk's view of a run's window: its cancel button works meanwhile and counts afterwards.
class ReadingView : public scan::WalkView {
  public:
    explicit ReadingView(RunWindow& window) : window_(window) {}
    void showWaiting() override { window_.showProgress(kReadingText); }
    void keepAlive() override { window_.yield(); }

  private:
    RunWindow& window_;
};

void startAnew(RunState& run) {
    run.SizeTexts = {};
    run.SizeSums = {};
    run.CopyStarted = 0;
    run.FoundCount = 0;
    run.SelectedCount = 0;
    run.knownCounts = {};
    run.checked.clear();
    run.tables.clear();
    run.workList.clear();
}

}  // namespace

bool readMedium(const RunTools& tools, RunState& run, RunWindow& window) {
    startAnew(run);
    const std::u16string listFile = std::u16string(tools.AppPath).append(scan::kTrackListName);
    const std::u16string root = tools.settings.CdRomDrive.substr(0, 2) + u"\\";
    ReadingView view(window);
    scan::ListMusicFiles({tools.files, tools.messages, tools.codePage}, tools.settings, run.scan,
                         view, listFile, root);
    if (run.stopRequested()) return false;

    scan::TrackListReader lines(tools.files, listFile, tools.codePage);
    scan::Percentage percentage(run.scan.ScanFileCount);
    for (std::u16string path; lines.next(path);) {
        const scan::TrackAnalysis track = scan::AnalyseTrack(tools.files, tools.codePage, path);
        if (!track.failed()) {
            if (run.workList.count() == mostTracks(run.RunMode)) throwTooManyTracks();
            run.workList.add(track.TrackTitle, path, track.TrackSize);
        }
        ++run.FoundCount;
        if (const auto percent = percentage.change(run.FoundCount)) {
            window.showProgress(analysisProgress(*percent));
            window.showAdvance(run.FoundCount, run.scan.ScanFileCount);
        }
        window.yield();
        if (run.stopRequested()) return false;
    }
    return true;
}

}  // namespace newcd
