// The last phases of a run in copy mode: waiting for the user, then copying what is checked.
#pragma once

#include "newcd/runstate.h"
#include "newcd/runtools.h"
#include "newcd/runwindows.h"

namespace newcd {

// Returns when the copy is started (true) or a stop was asked for (false). The start button is
// enabled while a track is checked.
bool waitForStart(RunState& run, CopyWindow& window);

// Copies the checked tracks in list order, shows the summary and returns when the user closes the
// window. Gives false when a stop was asked for before the last file. Throws base::Error for a file
// that cannot be copied; those before it stay.
bool copySelection(const RunTools& tools, RunState& run, CopyWindow& window);

}  // namespace newcd
