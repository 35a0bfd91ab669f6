#include "jet/pageimage.h"

#include <algorithm>

namespace jet {

namespace {

struct RankedWrite {
    int rank;
    BurstWrite write;
};

int earlyRank(PageRole role) {
    switch (role) {
        case PageRole::GlobalMap:
            return 0;
        case PageRole::LongValues:
            return 1;
        case PageRole::Rows:
            return 2;
        case PageRole::Map:
            return 3;
        case PageRole::Definition:
            break;
    }
    return 7;
}

int lateRank(PageRole role) {
    switch (role) {
        case PageRole::LongValues:
        case PageRole::Rows:
            return 4;
        case PageRole::Map:
            return 5;
        case PageRole::GlobalMap:
            return 6;
        case PageRole::Definition:
            break;
    }
    return 7;
}

}  // namespace

std::vector<BurstWrite> burstOrder(const std::unordered_map<uint32_t, PageImage>& images,
                                   const std::vector<uint32_t>& pages) {
    std::vector<RankedWrite> ranked;
    ranked.reserve(pages.size());
    for (const uint32_t page : pages) {
        const PageImage& image = images.at(page);
        if (image.early) ranked.push_back({earlyRank(image.role), {page, image.early.get()}});
        ranked.push_back(
            {image.late ? lateRank(image.role) : earlyRank(image.role), {page, image.bytes.get()}});
    }
    std::sort(ranked.begin(), ranked.end(), [](const RankedWrite& a, const RankedWrite& b) {
        return a.rank != b.rank ? a.rank < b.rank : a.write.page < b.write.page;
    });
    std::vector<BurstWrite> writes;
    writes.reserve(ranked.size());
    for (const RankedWrite& entry : ranked)
        writes.push_back(entry.write);
    return writes;
}

}  // namespace jet
