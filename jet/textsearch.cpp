#include "jet/textsearch.h"

#include <emmintrin.h>

#include <algorithm>
#include <bit>
#include <cstring>

namespace jet {
namespace {

constexpr size_t kBlock = sizeof(__m128i);

__m128i load(const uint8_t* bytes) {
    __m128i block;
    std::memcpy(&block, bytes, sizeof block);
    return block;
}

}  // namespace

// Sixteen places at a time: those where both the first and the last wanted byte stand are few.
size_t findBytes(std::span<const uint8_t> bytes, std::span<const uint8_t> wanted, size_t from) {
    if (bytes.size() < wanted.size()) return kNotFound;
    const size_t end = bytes.size() - wanted.size() + 1;  // places where it can begin
    const size_t lastOffset = wanted.size() - 1;
    const __m128i first = _mm_set1_epi8(static_cast<char>(wanted.front()));
    const __m128i last = _mm_set1_epi8(static_cast<char>(wanted.back()));
    size_t at = from;
    for (; at + kBlock <= end; at += kBlock) {
        const __m128i atFirst = _mm_cmpeq_epi8(load(bytes.data() + at), first);
        const __m128i atLast = _mm_cmpeq_epi8(load(bytes.data() + at + lastOffset), last);
        auto places = static_cast<unsigned>(_mm_movemask_epi8(_mm_and_si128(atFirst, atLast)));
        for (; places != 0; places &= places - 1) {
            const size_t place = at + static_cast<size_t>(std::countr_zero(places));
            if (std::memcmp(bytes.data() + place, wanted.data(), wanted.size()) == 0) return place;
        }
    }
    if (at >= end) return kNotFound;
    const auto rest = bytes.subspan(at);
    const auto found = std::search(rest.begin(), rest.end(), wanted.begin(), wanted.end());
    return found == rest.end() ? kNotFound : at + static_cast<size_t>(found - rest.begin());
}

}  // namespace jet
