// Times, and what can be said of several of them.
#pragma once

#include <chrono>
#include <cstddef>
#include <vector>

namespace bench {

// Seconds of one call.
template <class Work>
double timed(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

struct Times {
    std::vector<double> seconds;

    double median() const;
    // Half the distance between the quartiles, as a share of the median.
    double spread() const;
};

// Bytes that the process has allocated and not freed.
size_t allocatedBytes();

// Gigabytes a second at which this machine reads memory, one thread, the best of a few tries.
double memoryBandwidth();

}  // namespace bench
