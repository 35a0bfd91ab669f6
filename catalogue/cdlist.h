// The CD list: its rows, and deleting one. A CD exists as long as a track bears its name.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "jet/database.h"
#include "platform/messages.h"

namespace catalogue {

// Row 0, "*** TOUS LES TITRES ***", stands for the whole catalogue; below it come the names of the
// CDs, each once, in the catalogue's ascending order.
std::vector<std::u16string> CdListRows(jet::Database& catalogue);

// Asks whether the CD `name` (nothing: every CD) is to be deleted and, on Yes, deletes its tracks,
// all of them or, after an error, which is shown, none. False when the answer was not Yes; on true
// the CD list and the track list must be made anew, also after an error. `deleting` is called
// once the answer is there and the work, which may be long, begins.
bool DeleteCd(
    jet::Database& catalogue, platform::Messages& messages,
    const std::optional<std::u16string>& name, const std::function<void()>& deleting = [] {});

}  // namespace catalogue
