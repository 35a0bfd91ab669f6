// Search mode's pass: which tracks of the medium the catalogue knows.
#pragma once

#include "newcd/runstate.h"
#include "newcd/runtools.h"
#include "newcd/runwindows.h"

namespace newcd {

// Begins to bring into memory what tells whether a track is known; returns at once.
void readAheadForSearch(jet::Database& catalogue);

// Lists the known tracks, then shows the summary. Gives false when a stop was asked for.
bool filterForSearch(const RunTools& tools, RunState& run, SearchWindow& window);

}  // namespace newcd
