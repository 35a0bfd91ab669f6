// How much memory may make queries faster.
#pragma once

#include <cstddef>

namespace jet {

struct CacheLimits {
    // What the columns of a table kept in memory may take, per row. 0: nothing is ever kept, and
    // all answers come from the pages.
    size_t bytesPerRow = 200;
    // A column with more different texts than this is not taken for one that repeats them (65535
    // at most).
    size_t dictionaryTexts = 65535;
};

}  // namespace jet
