// One value of one column of one row.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace jet {

struct Null {
    bool operator==(const Null&) const = default;
};

using Bytes = std::vector<uint8_t>;

// Boolean, whole number (Byte, Integer, Long), other number (Currency, Single, Double, Date,
// Decimal), text (Text, Memo), bytes (Binary, OLE, GUID).
using Value = std::variant<Null, bool, int64_t, double, std::u16string, Bytes>;

}  // namespace jet
