// A sound catalogue that a test spoils by hand.
#pragma once

#include <algorithm>
#include <array>
#include <vector>

#include "jet/bytes.h"
#include "jet/cell.h"
#include "jet/format.h"
#include "jet/tabledefinition.h"
#include "tests/jet/storefixture.h"

namespace jet {

// Places among the columns of ListDonnees.
inline constexpr uint32_t kNom = 0;
inline constexpr uint32_t kFichier = 2;
inline constexpr uint32_t kFichierCompil = 3;  // every 10th row's is a chain of pages
inline constexpr uint32_t kChainedRow = 9;

// A catalogue of 40 rows, and where its parts are.
class SpoiledFile {
  public:
    SpoiledFile() {
        fakes::FaultyFileStore files;
        files.put(kPath, shippedFile());
        const auto store = Store::open(files, kPath);
        appendRows(*store, makeRows(0, 40));
        const Table& table = store->table(kTable);
        definition_ = table.definition();
        rows_ = rowIds(table);
        bytes_ = files.get(kPath);
    }

    const fakes::FileBytes& bytes() const { return bytes_; }
    const TableDefinition& definition() const { return definition_; }
    RowId row(size_t index) const { return rows_[index]; }
    const Column& column(size_t index) const { return definition_.columns[index]; }
    uint32_t pageCount() const { return static_cast<uint32_t>(bytes_.size() / jet4.pageSize); }

    uint8_t* page(uint32_t number) { return bytes_.data() + size_t{number} * jet4.pageSize; }
    uint8_t* slotEntry(RowId row) {
        return page(row.page()) + jet4.dataPage.slots + 2 * row.slot();
    }
    uint8_t* rowBytes(RowId row) {
        return page(row.page()) + (get16(slotEntry(row)) & slot::kOffset);
    }
    uint32_t rowLength(RowId row) {
        const uint32_t end = row.slot() == 0
                                 ? jet4.pageSize
                                 : get16(slotEntry(RowId{row.value - 1})) & slot::kOffset;
        return end - (get16(slotEntry(row)) & slot::kOffset);
    }
    // The Id of ListDonnees in the system's table of objects; its parent stands behind it.
    uint8_t* catalogueEntry() {
        std::array<uint8_t, 8> entry{};
        put32(entry.data(), definition_.page);
        put32(entry.data() + 4, 0x0F000001);
        return &*std::search(bytes_.begin(), bytes_.end(), entry.begin(), entry.end());
    }
    // The long-value cell of a row.
    uint8_t* cell(size_t row, size_t columnIndex) {
        const RowView view{rowBytes(rows_[row]), rowLength(rows_[row])};
        const Cell found = findCell(RowShape{}, view, column(columnIndex));
        return page(0) + (found.bytes - bytes_.data());
    }
    void flipMapBit(RowId map, uint32_t pageNumber) {
        const uint8_t* row = rowBytes(map);
        const bool reference = row[0] == 1;
        uint8_t* bits = reference ? page(get32(row + 1)) + page::kMapBits : rowBytes(map) + 5;
        const uint32_t bit = reference ? pageNumber : pageNumber - get32(row + 1);
        bits[bit / 8] ^= static_cast<uint8_t>(1u << bit % 8);
    }

  private:
    fakes::FileBytes bytes_;
    TableDefinition definition_;
    std::vector<RowId> rows_;
};

}  // namespace jet
