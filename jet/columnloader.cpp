#include "jet/columnloader.h"

#include "jet/parallel.h"

namespace jet {
namespace {

using Columns = ColumnLoader::Columns;

// After so many rows the size of a column is foreseen, and from then on watched.
constexpr size_t kSampleRows = 4096;

// Gives up the last columns until the others fit into `room` bytes.
void fit(Columns& columns, size_t room) {
    size_t bytes = 0;
    for (std::unique_ptr<CachedColumn>& column : columns) {
        if (!column) continue;
        bytes += column->bytes();
        if (bytes > room) column.reset();
    }
}

void appendNull(Columns& columns) {
    for (std::unique_ptr<CachedColumn>& column : columns)
        if (column && !column->appendNull()) column.reset();
}

void append(Columns& columns, const Table& table, RowView row) {
    for (std::unique_ptr<CachedColumn>& column : columns)
        if (column && !column->append(table, row)) column.reset();
}

}  // namespace

Columns ColumnLoader::load(std::span<const Column* const> columns, size_t room) const {
    const size_t rows = rows_.ids.size();
    std::vector<Columns> parts(limits_.partsFor(rows));
    inParts(rows, parts.size(), [&](size_t part, size_t first, size_t last) {
        // What turns texts keeps the last of them.
        TextFolder folder(folder_.order());
        parts[part] =
            loadPart(columns, room / parts.size(), part == 0 ? folder_ : folder, first, last);
    });
    Columns loaded = std::move(parts.front());
    for (size_t i = 0; i < loaded.size(); ++i) {
        if (!loaded[i]) continue;
        std::vector<const CachedColumn*> others;
        for (size_t part = 1; part < parts.size(); ++part)
            others.push_back(parts[part][i].get());
        if (!loaded[i]->join(others)) loaded[i].reset();
        for (size_t part = 1; part < parts.size(); ++part)
            parts[part][i].reset();
    }
    fit(loaded, room);
    return loaded;
}

// The rows `first` to `last`, that one excluded.
Columns ColumnLoader::loadPart(std::span<const Column* const> columns, size_t room,
                               TextFolder& folder, size_t first, size_t last) const {
    Columns loaded;
    for (const Column* column : columns)
        loaded.push_back(std::make_unique<CachedColumn>(*column, folder, limits_));
    if (first == last) return loaded;

    RowCursor cursor = table_.rows(rows_.ids[first].page());
    bool atRow = cursor.next();
    uint32_t page = kNoPage;
    for (size_t row = first; row < last; ++row) {
        if (row - first == kSampleRows) {
            for (std::unique_ptr<CachedColumn>& column : loaded)
                if (column) column->expect(last - first);
        }
        if ((row - first) % kSampleRows == 0) fit(loaded, room);
        if (!rows_.live.contains(row)) {
            appendNull(loaded);
            continue;
        }
        // The order of the identities is mostly that of the pages.
        const RowId id = rows_.ids[row];
        const bool inOrder = row < rows_.sorted;
        while (inOrder && atRow && cursor.id() < id)
            atRow = cursor.next();
        const bool met = inOrder && atRow && cursor.id() == id;
        if (met && id.page() != page) {
            page = id.page();
            cursor.prefetchNextPage();
        }
        append(loaded, table_, met ? cursor.row() : table_.row(id));
    }
    return loaded;
}

}  // namespace jet
