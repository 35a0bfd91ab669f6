// A second look at a file's structure that shares no code with the engine.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace jet {

// Holds `file` to the rules of docs/mdb-format.md: exact free-space fields, rows in order inside
// their pages, disjoint usage maps that name no free page, pages with room among the owned ones,
// and, for `table`, a right row count and long values that are each named by exactly one row.
// Gives one line for each rule that is broken.
std::vector<std::string> checkFile(const std::vector<uint8_t>& file, std::string_view table);

}  // namespace jet
