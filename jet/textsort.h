// Sorting rows by their texts, eight bytes of the texts' keys at a time.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "jet/foldedtexts.h"
#include "jet/rowid.h"
#include "jet/textorder.h"

namespace jet {

// Puts `rows` into the order of their texts, Null first, rows with equal texts in the order of
// their identities in `ids` (by row number).
void sortByText(std::vector<uint32_t>& rows, const FoldedTexts& texts, const TextOrder& order,
                std::span<const RowId> ids);

}  // namespace jet
