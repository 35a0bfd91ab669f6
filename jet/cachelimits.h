// How much memory and how many processors may make queries faster.
#pragma once

#include <algorithm>
#include <cstddef>
#include <thread>

namespace jet {

struct CacheLimits {
    // What the columns of a table kept in memory may take, per row. 0: nothing is ever kept, and
    // all answers come from the pages.
    size_t bytesPerRow = 200;
    // A column with more different texts than this is not taken for one that repeats them (65535
    // at most).
    size_t dictionaryTexts = 65535;
    // So many rows are worth a processor of their own.
    size_t rowsOfPart = 65536;
    size_t processors = 0;  // 0: all there are

    size_t partsFor(size_t rows) const {
        const size_t most = processors != 0 ? processors : std::thread::hardware_concurrency();
        return std::clamp<size_t>(rows / rowsOfPart, 1, std::max<size_t>(1, most));
    }
};

}  // namespace jet
