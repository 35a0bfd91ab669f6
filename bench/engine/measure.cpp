#include "bench/engine/measure.h"

#include <malloc.h>

#include <algorithm>
#include <cstdint>
#include <numeric>

namespace bench {
namespace {

// The value that `share` of the sorted values lie below.
double quantile(std::vector<double> values, double share) {
    std::sort(values.begin(), values.end());
    const double place = share * static_cast<double>(values.size() - 1);
    const auto below = static_cast<size_t>(place);
    const size_t above = std::min(below + 1, values.size() - 1);
    const double part = place - static_cast<double>(below);
    return values[below] * (1 - part) + values[above] * part;
}

}  // namespace

double Times::median() const {
    return quantile(seconds, 0.5);
}

double Times::spread() const {
    return (quantile(seconds, 0.75) - quantile(seconds, 0.25)) / 2 / median();
}

size_t allocatedBytes() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

double memoryBandwidth() {
    constexpr size_t kWords = size_t{1} << 27;  // a gigabyte
    const std::vector<uint64_t> memory(kWords, 1);
    double best = 0;
    uint64_t sum = 0;
    for (int round = 0; round < 5; ++round) {
        const double seconds =
            timed([&] { sum += std::accumulate(memory.begin(), memory.end(), uint64_t{0}); });
        best = std::max(best, static_cast<double>(kWords * sizeof(uint64_t)) / seconds / 1e9);
    }
    return sum == 0 ? 0 : best;  // the sum is used, so that it is made
}

}  // namespace bench
