// Appending rows to one table and removing them, within one transaction.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "jet/longvaluewriter.h"
#include "jet/rowbuilder.h"
#include "jet/rowpages.h"

namespace jet {

class TableWriter {
  public:
    // NotSupported when the table holds what we would not keep in order. `definition` must outlive
    // the writer.
    TableWriter(StoreContext& context, const TableDefinition& definition);

    RowId append(std::span<const Value> values);
    // `row` is live.
    void remove(RowId row);

    // Rows appended less rows removed.
    int64_t addedRows() const { return addedRows_; }
    // The last automatic number, counting those of this transaction.
    uint32_t lastAutoNumber() const { return lastAutoNumber_; }

    // The two parts of a commit: what must be there before, and what can go after, the rows.
    void settleCounts();
    void settleRemovals();

  private:
    void encode(std::span<const Value> values);
    void encodeLongValue(size_t column, const Value& value);
    void placeLongValues();
    uint32_t variableBytes() const;

    StoreContext& context_;
    const TableDefinition& definition_;
    RowPages rows_;
    std::vector<std::unique_ptr<LongValueWriter>> longValues_;  // by column; null: not a long one

    RowBuilder builder_;
    RowCells cells_;
    std::vector<Bytes> payloads_;  // by column: the bytes of a long value
    std::vector<bool> inRow_;      // by column: whether they stay in the row
    Bytes row_;

    std::vector<RowId> overflowRows_;  // removed rows that lie away from their slot
    int64_t addedRows_ = 0;
    uint32_t lastAutoNumber_;
    bool changed_ = false;
};

}  // namespace jet
