// Which tracks of the medium are to be copied.
#pragma once

#include <cstddef>
#include <string>

#include "newcd/runstate.h"
#include "newcd/summaries.h"

namespace newcd {

// Adds the next track of the medium, of `size` bytes, to what was found, chosen or not.
void addToSelection(RunState& run, int64_t size, bool checked);

// The user checks or unchecks the track at `position` (from 0) of the list. A state that it has
// already changes nothing.
void checkTrack(RunState& run, size_t position, bool checked);

// Counts and sizes for the copy window's summaries; brings SizeTexts up to date.
CopyResult copyResult(RunState& run, char16_t decimalSeparator);

}  // namespace newcd
