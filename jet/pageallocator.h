// Gives out pages and takes them back, for one transaction at a time.
//
// Only pages that are free in the state before the transaction are given out, so that they may be
// written before the commit; pages taken back are free from the commit on.
#pragma once

#include <cstdint>
#include <vector>

#include "jet/globalmap.h"
#include "jet/pageimage.h"

namespace jet {

class Pager;

class PageAllocator {
  public:
    explicit PageAllocator(Pager& pager) : pager_(pager), global_(pager) {}

    // A page of zeros that is in no map yet.
    uint32_t allocate(PageRole role);
    // The same, made an empty type 5 map page.
    uint32_t allocateMapPage();
    // Takes back a page that no map and no row names any longer.
    void release(uint32_t page);
    // Makes the released pages free in the global map. For the late stage of a commit.
    void settleReleases();
    // Forgets the transaction.
    void endTransaction();

  private:
    Pager& pager_;
    GlobalMap global_;
    uint32_t searchFrom_ = 0;
    std::vector<uint32_t> recycled_;  // given out and taken back by this transaction
    std::vector<uint32_t> released_;
};

}  // namespace jet
