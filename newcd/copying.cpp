#include "newcd/copying.h"

#include <algorithm>
#include <span>
#include <vector>

#include "base/error.h"
#include "newcd/conflictnames.h"
#include "newcd/copytargets.h"
#include "newcd/selection.h"
#include "newcd/summaries.h"

namespace newcd {
namespace {

// How much is read ahead of its turn, bytes: it lies on the disk twice over if all goes wrong, and
// a stop may have to wait for one of these files.
constexpr int64_t kMostBytesAhead = int64_t{8} << 20;

void createFolders(platform::FileCopier& copier, const CopyTarget& target) {
    for (const std::u16string& folder : target.foldersToCreate) {
        try {
            copier.createFolder(folder);
        } catch (const base::Error&) {
            // Most often it is there already; if it is not, copying into it will tell.
        }
    }
}

// Replaces CopyFileName, which is taken, by the next proposal or by the user's choice.
void chooseNewName(RunState& run, CopyWindow& window) {
    const std::u16string oldName = run.CopyFileName;
    const std::u16string proposal = proposedName(oldName);
    for (;;) {
        run.CopyFileName = proposal;
        if (run.AutoRenameAll == 1) return;
        window.askNewName(oldName, proposal);
        if (run.CopyFileName == proposal || isUsableName(run.CopyFileName)) return;
    }
}

// The bytes of the chosen tracks, as the windows show them while files are copied.
class CopiedBytes {
  public:
    CopiedBytes(const RunState& run, CopyWindow& window)
        : window_(window), total_(run.SizeSums[SizeOfSelected]) {}

    // Of the file in hand, which had `size` bytes when the medium was read, `done` are copied.
    void show(int64_t done, int64_t size) {
        window_.showAdvance(before_ + std::min(done, size), total_);
    }
    void fileDone(int64_t size) {
        before_ += size;
        window_.showAdvance(before_, total_);
    }

  private:
    CopyWindow& window_;
    int64_t total_;
    int64_t before_ = 0;
};

platform::CopySource sourceOf(const Track& track) {
    return {.path = track.path, .size = static_cast<uint64_t>(track.size)};
}

// Gives false when the name was taken between the test and the copy's end.
bool tryCopy(const RunTools& tools, const Track& track, std::u16string_view target,
             std::span<const platform::CopySource> next, CopiedBytes& bytes, CopyWindow& window) {
    try {
        tools.copier.copy(sourceOf(track), target, next, [&](uint64_t done) {
            bytes.show(static_cast<int64_t>(done), track.size);
            window.yield();
        });
        bytes.fileDone(track.size);
        return true;
    } catch (const base::Error& error) {
        if (error.number() != base::ErrorNumber::FileAlreadyExists) throw;
        return false;
    }
}

CopyTarget targetOf(const RunTools& tools, const Track& track) {
    return copyTarget(tools.settings.CopyDestination, track.path, tools.settings.CopyOption3 != 0);
}

// The first checked position from `position` on; the list's length when there is none.
size_t checkedFrom(const RunState& run, size_t position) {
    while (position < run.checked.size() && !run.checked[position])
        ++position;
    return position;
}

// The files after `position` that may be read while the ones before them are given their names in
// `folder`.
std::vector<platform::CopySource> readAhead(const RunTools& tools, const RunState& run,
                                            size_t position, std::u16string_view folder) {
    std::vector<platform::CopySource> sources;
    int64_t bytes = 0;
    while (sources.size() < platform::FileCopier::kMostAhead) {
        position = checkedFrom(run, position + 1);
        if (position >= run.checked.size()) break;
        const Track track = run.tables.track(position + 1, 0);
        bytes += track.size;
        if (bytes > kMostBytesAhead || targetOf(tools, track).folder != folder) break;
        sources.push_back(sourceOf(track));
    }
    return sources;
}

void copyTrack(const RunTools& tools, RunState& run, size_t position, CopiedBytes& bytes,
               CopyWindow& window) {
    const Track track = run.tables.track(position + 1, 0);
    const CopyTarget target = targetOf(tools, track);
    const std::vector<platform::CopySource> next = readAhead(tools, run, position, target.folder);
    createFolders(tools.copier, target);
    run.CopyFileName = target.name;
    for (;;) {
        while (tools.copier.opens(pathIn(target.folder, run.CopyFileName)))
            chooseNewName(run, window);
        window.showProgress(copyProgress(track.path, track.title));
        if (tryCopy(tools, track, pathIn(target.folder, run.CopyFileName), next, bytes, window))
            return;
        chooseNewName(run, window);
    }
}

// A run of copies, however it ends.
class Copies {
  public:
    explicit Copies(platform::FileCopier& copier) : copier_(copier) {}
    Copies(const Copies&) = delete;
    Copies& operator=(const Copies&) = delete;
    ~Copies() { copier_.endCopies(); }

  private:
    platform::FileCopier& copier_;
};

// Gives false when a stop was asked for.
bool copyChecked(const RunTools& tools, RunState& run, CopyWindow& window) {
    const Copies copies(tools.copier);
    CopiedBytes bytes(run, window);
    for (size_t position = checkedFrom(run, 0); position < run.checked.size();
         position = checkedFrom(run, position + 1)) {
        copyTrack(tools, run, position, bytes, window);
        window.yield();
        if (run.stopRequested()) return false;
    }
    return true;
}

}  // namespace

bool waitForStart(RunState& run, CopyWindow& window) {
    bool enabled = run.SelectedCount != 0;
    window.enableStart(enabled);
    while (!run.stopRequested()) {
        if (run.CopyStarted == 1) return true;
        window.waitForEvents();
        if ((run.SelectedCount != 0) == enabled) continue;
        enabled = !enabled;
        window.enableStart(enabled);
    }
    return false;
}

bool copySelection(const RunTools& tools, RunState& run, CopyWindow& window) {
    run.AutoRenameAll = 0;
    window.showProgress(kCopyingText);
    window.enableStart(false);
    window.enableList(false);
    if (!copyChecked(tools, run, window)) return false;
    window.showAdvance(0, 0);
    window.showProgress(copiedSummary(copyResult(run, tools.decimalSeparator)));
    window.turnCancelIntoOk();
    window.enableList(true);
    while (!run.stopRequested())
        window.waitForEvents();
    return true;
}

}  // namespace newcd
