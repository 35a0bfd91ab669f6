// What a run has found out and what the windows' buttons tell it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "newcd/tracktables.h"
#include "newcd/worklist.h"
#include "scan/scanstate.h"

namespace newcd {

enum class Mode { Copy = 0, Search = 1 };

// Rows of SizeSums and SizeTexts.
enum SizeIndex : size_t { SizeOfAll, SizeOfKnownTitles, SizeOfKnownTitlesAndSizes, SizeOfSelected };

struct RunState {
    // `scanState` holds the stop answer that all long operations share; it outlives the run state.
    explicit RunState(scan::ScanState& scanState) : scan(scanState) {}
    RunState(const RunState&) = delete;
    RunState& operator=(const RunState&) = delete;

    bool stopRequested() const { return scan.ScanAnswer == 1; }

    scan::ScanState& scan;

    // Set before the run.
    Mode RunMode = Mode::Copy;
    std::u16string CopyFilterText;  // trimmed, in upper case; empty for none

    // Set by the windows' buttons: 1 once the copy is started; 1 once every name that is taken is
    // to be replaced by the proposed one; the name for the file in hand.
    int CopyStarted = 0;
    int AutoRenameAll = 0;
    std::u16string CopyFileName;

    int64_t FoundCount = 0;
    int64_t SelectedCount = 0;
    std::array<int64_t, 4> SizeSums{};  // bytes
    std::array<std::u16string, 4> SizeTexts;

    WorkList workList;
    TrackTables tables{workList};
    std::array<int64_t, TrackTables::kColumns> knownCounts{};  // titles in each list of the search
    std::vector<bool> checked;                                 // by position in the copy list
};

}  // namespace newcd
