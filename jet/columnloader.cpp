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
    const size_t count = limits_.partsFor(rows);
    // A folder serves one thread only; the columns of the other parts do not outlive theirs.
    std::vector<TextFolder> folders(count - 1, TextFolder(folder_.order()));
    std::vector<Columns> parts(count);
    inParts(rows, count, [&](size_t part, size_t first, size_t last) {
        TextFolder& folder = part == 0 ? folder_ : folders[part - 1];
        parts[part] = loadPart(columns, room / count, folder, first, last);
    });
    Columns loaded = std::move(parts.front());
    for (size_t i = 0; i < loaded.size(); ++i) {
        if (!loaded[i]) continue;
        std::vector<const CachedColumn*> others;
        for (size_t part = 1; part < count; ++part)
            others.push_back(parts[part][i].get());
        if (!loaded[i]->join(others)) loaded[i].reset();
        for (size_t part = 1; part < count; ++part)
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
        // The cursor meets the identities in ascending order, too.
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
