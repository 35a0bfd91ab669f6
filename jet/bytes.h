// Little-endian numbers at unaligned places of a page.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace jet {

static_assert(std::endian::native == std::endian::little, "pages are read in place");

template <typename Number>
inline Number getNumber(const uint8_t* bytes) {
    Number value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

template <typename Number>
inline void putNumber(uint8_t* bytes, Number value) {
    std::memcpy(bytes, &value, sizeof value);
}

inline uint16_t get16(const uint8_t* bytes) {
    return getNumber<uint16_t>(bytes);
}
inline uint32_t get32(const uint8_t* bytes) {
    return getNumber<uint32_t>(bytes);
}
inline uint64_t get64(const uint8_t* bytes) {
    return getNumber<uint64_t>(bytes);
}
inline void put16(uint8_t* bytes, uint32_t value) {
    putNumber(bytes, static_cast<uint16_t>(value));
}
inline void put32(uint8_t* bytes, uint32_t value) {
    putNumber(bytes, value);
}
inline void put64(uint8_t* bytes, uint64_t value) {
    putNumber(bytes, value);
}

}  // namespace jet
