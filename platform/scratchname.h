// Names of files under way, which tell whose they are.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

// The name, without a folder, of a file that the process `process` is making. Several at the same
// time in one folder have different numbers, from 0.
std::u16string scratchName(uint32_t process, uint32_t number);

// The process that makes the file of that name; none for a name that scratchName() never gives.
std::optional<uint32_t> scratchOwner(std::u16string_view name);

}  // namespace platform
