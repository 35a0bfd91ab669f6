// Files with other columns in ListDonnees than the shipped one, or of the other version, written
// byte by byte, to meet what catalogues made elsewhere may hold.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "jet/format.h"
#include "jet/tabledefinition.h"
#include "tests/fakes/faultyfilestore.h"

namespace jet {

struct CustomColumn {
    std::u16string name;
    ColumnType type;
    uint16_t length = 0;  // bytes; for Text, Binary
    bool fixed = false;
    bool compressed = false;
    bool autoNumber = false;
    uint8_t scale = 0;
    // Gives up the place of a column deleted before this one, as deleting in Access does.
    bool afterDeletedColumn = false;
};

// ListDonnees is empty and has these columns, at most four of them Memo or Ole, and so many indexes
// (of the first column, without pages). The file of the older version holds nothing but this table
// and the list of tables.
fakes::FileBytes fileWithColumns(const Format& format, const std::vector<CustomColumn>& columns,
                                 uint32_t indexCount = 0);

// The columns of the shipped file, as a file of `format` has them.
std::vector<CustomColumn> shippedColumns(const Format& format);

}  // namespace jet
