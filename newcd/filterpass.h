// The pass over the work list that both modes filter by.
#pragma once

#include <cstddef>
#include <functional>

#include "newcd/runstate.h"
#include "newcd/runwindows.h"

namespace newcd {

// Hands every track, by its index in the work list, to `take` with FoundCount counting it already,
// shows the progress and yields after each. Gives false when a stop was asked for.
bool filterTracks(RunState& run, RunWindow& window, const std::function<void(size_t)>& take);

}  // namespace newcd
