// Listing the pages of a usage map for a check of the file.
#pragma once

#include <cstdint>
#include <vector>

#include "jet/findings.h"
#include "jet/pageclaims.h"
#include "jet/rowid.h"

namespace jet {

class Pager;

enum class MapKind : uint8_t {
    Global,  // its bits past the end of the file are of no account
    Owned,
    WithRoom,
};

// The pages of the map at `where`, in ascending order; claims the pages that the map itself takes.
// A map that cannot be read gives those pages that can, and a finding.
std::vector<uint32_t> listMap(const Pager& pager, RowId where, MapKind kind, PageClaims& claims,
                              Findings& findings);

}  // namespace jet
