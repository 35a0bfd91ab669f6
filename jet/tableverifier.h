// Checking one table of a file: its pages, its rows, its long values, its row count.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "jet/cell.h"
#include "jet/findings.h"
#include "jet/pageclaims.h"
#include "jet/tabledefinition.h"

namespace jet {

class Pager;
class PageSlots;

struct TableSummary {
    std::u16string name;
    uint64_t rows = 0;
    uint64_t longValues = 0;  // those that lie outside their rows
    uint32_t rowPages = 0;
    uint32_t longValuePages = 0;
    uint32_t indexPages = 0;
};

class TableVerifier {
  public:
    // All must outlive the verifier.
    TableVerifier(const Pager& pager, const TableDefinition& definition, PageClaims& claims,
                  Findings& findings);

    // Claims the table's pages and checks each; then, unless it is a table of Access itself, whose
    // counts drift and whose long values have other owners, follows every row, every long value and
    // every index.
    TableSummary verify();

  private:
    // A Memo or Ole column: its pages, and the pieces of values that rows have named so far.
    struct LongColumn {
        const Column* column;
        std::vector<uint32_t> pages;
        std::vector<RowId> named;
    };

    std::vector<uint32_t> claimMaps(RowId owned, RowId withRoom, PageUse use);
    void verifyPage(uint32_t page, uint32_t owner);
    void verifyIndexPage(uint32_t page);
    void verifyIndexes();
    void verifyRows();
    void verifyRowsOn(uint32_t page);
    void verifyRow(uint32_t page, RowView row);
    void follow(LongColumn& into, uint32_t page, Cell cell);
    void verifyLongValues(LongColumn& values);
    void verifyNamed(std::vector<RowId>& named, std::vector<RowId>& present,
                     std::u16string_view twice, std::u16string_view lost);

    const Pager& pager_;
    const TableDefinition& definition_;
    PageClaims& claims_;
    Findings& findings_;
    RowShape shape_;
    TableSummary summary_;
    std::vector<uint32_t> rowPages_;
    std::vector<LongColumn> longColumns_;
    std::vector<std::vector<uint32_t>> indexPages_;  // by index
    std::vector<RowId> rows_;                        // live ones
    std::vector<RowId> moveTargets_;                 // where pointer slots lead
    std::vector<RowId> movedRows_;                   // slots marked as such targets
};

}  // namespace jet
