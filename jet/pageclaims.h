// Who uses each page of a file. Everything that has pages claims them; a page that two things
// claim, or one that is free as well, is a finding.
#pragma once

#include <cstdint>
#include <set>
#include <vector>

#include "jet/findings.h"
#include "jet/rowid.h"

namespace jet {

enum class PageUse : uint8_t {
    None,
    Header,
    MapRows,  // rows that are usage maps; those of several tables share a page
    MapPage,
    Definition,
    Rows,
    LongValues,
    Index,
};

class PageClaims {
  public:
    PageClaims(uint32_t pageCount, Findings& findings) : pages_(pageCount), findings_(findings) {}

    uint32_t pageCount() const { return static_cast<uint32_t>(pages_.size()); }
    // Both pass over pages that the file does not have. Free pages first, then claims.
    void markFree(uint32_t page);
    // Gives whether nothing else has claimed the page.
    bool claim(uint32_t page, PageUse use);
    // Gives whether nobody else has claimed the usage map at `row`: each has one owner.
    bool claimMap(RowId row);

    uint32_t freeCount() const;
    // Pages that are neither free nor of any use: lost room, which harms nobody.
    uint32_t lostCount() const;

  private:
    struct Page {
        PageUse use = PageUse::None;
        bool free = false;
    };

    std::vector<Page> pages_;
    std::set<RowId> maps_;
    Findings& findings_;
};

}  // namespace jet
