// A changed page in memory, and the order in which changed pages reach the file.
#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

namespace jet {

// What a page is for; decides when it is written in the burst of a commit.
enum class PageRole : uint8_t { GlobalMap, LongValues, Rows, Map, Definition };

struct PageImage {
    PageRole role = PageRole::Rows;
    std::unique_ptr<uint8_t[]> bytes;
    // The page as it was before the late stage changed it, when the early stage had, too: such a
    // page is written twice.
    std::unique_ptr<uint8_t[]> early;
    bool late = false;  // changed in the late stage
};

struct BurstWrite {
    uint32_t page;
    const uint8_t* bytes;
};

// The writes of `pages` (keys into `images`) in an order that an independent reader can bear to
// see cut short anywhere:
//   1. pages taken off the global map, so that no page is ever both free and in use;
//   2. long values that were added, then rows (added or removed), then the maps of the tables;
//   3. long values that were removed, which no row names any longer, and their maps;
//   4. pages given back to the global map; 5. row counts.
std::vector<BurstWrite> burstOrder(const std::unordered_map<uint32_t, PageImage>& images,
                                   const std::vector<uint32_t>& pages);

}  // namespace jet
