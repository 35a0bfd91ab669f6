// The entries of a table's indexes as a real file stores them, to compare our text order with.
// Reads well-formed files only.
#pragma once

#include <cstdint>
#include <vector>

#include "jet/format.h"
#include "jet/rowid.h"
#include "jet/value.h"

namespace jet {

struct IndexEntries {
    struct ColumnOfIndex {
        uint16_t number;
        bool ascending;
    };
    struct Entry {
        Bytes key;  // flag bytes included
        RowId row;
    };
    std::vector<ColumnOfIndex> columns;
    std::vector<Entry> entries;  // in index order
};

// `file`: all bytes of the file.
std::vector<IndexEntries> readIndexes(const Bytes& file, const Format& format,
                                      uint32_t definitionPage);

}  // namespace jet
