// The first phase of a run: every readable track of the medium into the work list.
#pragma once

#include "newcd/runstate.h"
#include "newcd/runtools.h"
#include "newcd/runwindows.h"

namespace newcd {

// Walks the source drive and analyses what was found, showing how far that is. Gives false when a
// stop was asked for. Throws base::Error for a drive that cannot be read and for a medium with more
// tracks than the tables hold.
bool readMedium(const RunTools& tools, RunState& run, RunWindow& window);

}  // namespace newcd
