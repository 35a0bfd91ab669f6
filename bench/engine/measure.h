// Times, and what can be said of several of them.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
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

// Bytes a second at which this machine reads memory, one thread, the best of a few tries.
double memoryBandwidth();

// Seconds that it takes to read one place of a gigabyte when nobody could know which it would be.
double memoryLatency();

// Seconds until the medium has a page that was written to a file in `folder`, the median of some.
// Throws std::runtime_error when there is no file to be made.
double flushTime(const std::string& folder);

}  // namespace bench
