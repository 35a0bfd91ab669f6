// What the steps of a scan hand each other; one for the whole run of the program.
#pragma once

#include <cstdint>
#include <string>

namespace scan {

struct ScanState {
    int ScanAnswer = 0;         // 0: go on; 1: stop
    int64_t ScanFileCount = 0;  // music files found by the last walk
    // Set before a scan whose CD is known to exist: its rows are then replaced without a question.
    // Every scan resets it.
    bool SkipReplaceQuestion = false;
    // The last track's type. It outlives the track on purpose: a path that matches no extension
    // takes over the type of the one before.
    std::u16string TrackType;
};

}  // namespace scan
