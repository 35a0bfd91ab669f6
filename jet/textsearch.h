// Finding a byte sequence in a large buffer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace jet {

inline constexpr size_t kNotFound = static_cast<size_t>(-1);

// Where `wanted` (not empty) first occurs in `bytes` at or after `from`; kNotFound when it does
// not.
size_t findBytes(std::span<const uint8_t> bytes, std::span<const uint8_t> wanted, size_t from = 0);

}  // namespace jet
