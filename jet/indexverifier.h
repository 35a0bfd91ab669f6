// Checking one index of a table: its tree of pages, the order of its entries, and that these name
// the table's rows.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "jet/findings.h"
#include "jet/rowid.h"
#include "jet/tabledefinition.h"

namespace jet {

class Pager;

class IndexVerifier {
  public:
    // `pages` are those that the index owns, sorted. All must outlive the verifier.
    IndexVerifier(const Pager& pager, const TableDefinition& definition, const Index& index,
                  const std::vector<uint32_t>& pages, Findings& findings)
        : pager_(pager),
          definition_(definition),
          index_(index),
          pages_(pages),
          findings_(findings) {}

    // `rows` are the table's live rows, sorted.
    void verify(const std::vector<RowId>& rows);

  private:
    using Entry = std::vector<uint8_t>;

    void walk(uint32_t page, int depth);
    std::vector<Entry> entriesOn(uint32_t page);
    void addLeaf(uint32_t page);
    void verifyRows(const std::vector<RowId>& rows);

    const Pager& pager_;
    const TableDefinition& definition_;
    const Index& index_;
    const std::vector<uint32_t>& pages_;
    Findings& findings_;
    std::vector<uint32_t> visited_;
    uint32_t lastLeaf_ = 0;
    Entry last_;  // the entry before, to compare the next with
    std::vector<RowId> named_;
};

}  // namespace jet
