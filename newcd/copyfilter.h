// Copy mode's pass: which tracks of the medium are worth copying.
#pragma once

#include "newcd/markerrows.h"
#include "newcd/runstate.h"
#include "newcd/runtools.h"
#include "newcd/runwindows.h"

namespace newcd {

// Whether `track` passes every rule; one that does is marked. `markers` may be null when the
// duplicate rule copies all.
bool keepsTrack(const RunTools& tools, std::u16string_view filterText, MarkerRows* markers,
                const Track& track);

// Begins to bring into memory what the rules ask of the catalogue; returns at once.
void readAheadForCopy(const RunTools& tools, std::u16string_view filterText);

// Lists every track with its check, then shows the summary; no marker is left in the catalogue.
// Gives false when a stop was asked for.
bool filterForCopy(const RunTools& tools, RunState& run, CopyWindow& window);

}  // namespace newcd
