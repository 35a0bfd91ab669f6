// From a row's identity to its bytes.
#pragma once

#include <cstdint>

#include "jet/rowid.h"

namespace jet {

class Pager;

// The bytes of data page `number`; DatabaseCorrupt when it does not belong to the table whose
// definition starts on `definitionPage`.
const uint8_t* rowsPage(const Pager& pager, uint32_t number, uint32_t definitionPage);

// The row behind the slot `row`, which lies on a page of the table: its bytes there or, when it
// grew too long for its page, where the slot points to. `bytes` is null when the slot is deleted,
// absent, or itself the target of a pointer.
RowView findRow(const Pager& pager, RowId row, uint32_t definitionPage);
// The same for a slot that must hold a row.
RowView followRow(const Pager& pager, RowId row, uint32_t definitionPage);
// Where the bytes of that row are: `row` itself, or the target of its pointer.
RowId rowTarget(const Pager& pager, RowId row, uint32_t definitionPage);

}  // namespace jet
