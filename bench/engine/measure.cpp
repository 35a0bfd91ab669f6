#include "bench/engine/measure.h"

#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <numeric>
#include <stdexcept>

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
        best = std::max(best, static_cast<double>(kWords * sizeof(uint64_t)) / seconds);
    }
    return sum == 0 ? 0 : best;  // the sum is used, so that it is made
}

double memoryLatency() {
    constexpr size_t kPlaces = size_t{1} << 24;  // each in a cache line of its own
    constexpr size_t kLine = 64 / sizeof(uint32_t);
    constexpr size_t kSteps = 1'000'000;
    std::vector<uint32_t> next(kPlaces * kLine);
    // One way through all places: a linear congruential generator of full period.
    uint32_t place = 0;
    for (size_t i = 0; i < kPlaces; ++i) {
        const auto after = static_cast<uint32_t>((place * 1664525ULL + 1013904223) % kPlaces);
        next[place * kLine] = after;
        place = after;
    }
    const double seconds = timed([&] {
        for (size_t i = 0; i < kSteps; ++i)
            place = next[place * kLine];
    });
    return place == kPlaces ? 0 : seconds / kSteps;  // the place is used, so that it is read
}

double flushTime(const std::string& folder) {
    constexpr int kRounds = 21;
    const std::string path = folder + "/flush";
    const int file = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (file < 0) throw std::runtime_error("cannot make " + path);
    const std::array<char, 4096> page{};
    Times times;
    bool written = true;
    for (int round = 0; round < kRounds; ++round) {
        times.seconds.push_back(timed([&] {
            written =
                written && pwrite(file, page.data(), page.size(), 0) > 0 && fdatasync(file) == 0;
        }));
    }
    close(file);
    std::filesystem::remove(path);
    if (!written) throw std::runtime_error("cannot write " + path);
    return times.median();
}

}  // namespace bench
