// Files and folders that programs have left under way.
#pragma once

#include <string_view>

namespace platform::win32 {

// Removes from `folder` (with its backslash) the files and folders under way of programs that run
// no more; this process must have none there, so what has its number is an ended one's. In a folder
// under way only the files under way of the same program go, and then the folder if nothing else is
// in it; no link is followed. What cannot be removed stays. On a network drive nothing is removed:
// whose such a file is, only its own machine knows.
void removeAbandonedScratch(std::u16string_view folder);

}  // namespace platform::win32
