// The shipped file with other columns in its table, written byte by byte, to meet what catalogues
// made elsewhere may hold.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

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

// ListDonnees is empty and has these columns, at most four of them Memo or Ole.
fakes::FileBytes fileWithColumns(const std::vector<CustomColumn>& columns);

// The page where the definition of ListDonnees starts.
uint32_t definitionPage();

}  // namespace jet
