// The engine's errors that arise in more than one place, with their French texts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/error.h"

namespace jet {

// DatabaseCorrupt. `what`: the finding, completing "La base de données est endommagée : ".
[[noreturn]] void throwDamaged(std::u16string_view what);
[[noreturn]] void throwDamaged(std::u16string_view what, uint32_t page);

// Decimal digits, for places and texts of errors.
std::u16string numberText(uint64_t number);

}  // namespace jet
