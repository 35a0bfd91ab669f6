// Checking a whole database file against the rules of docs/mdb-format.md, changing nothing.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "jet/file.h"
#include "jet/findings.h"
#include "jet/tableverifier.h"

namespace jet {

struct Verification {
    std::vector<Finding> findings;  // none: the file is sound
    uint32_t pages = 0;
    uint32_t freePages = 0;
    uint32_t lostPages = 0;  // neither free nor of any use; Access itself leaves some
    std::vector<TableSummary> tables;
};

// Whatever the file holds is told in findings. Throws only when it cannot be opened for reading.
Verification verifyDatabase(FileStore& files, std::u16string_view path);

}  // namespace jet
