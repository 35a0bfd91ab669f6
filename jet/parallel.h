// Work that can be cut in parts, done by several processors.
#pragma once

#include <cstddef>
#include <future>
#include <vector>

namespace jet {

// Calls work(part, first, last) for `parts` parts of 0 to `count` that follow each other, at the
// same time, the first on the calling thread. Comes back when all are done; throws what one of them
// threw. Where there is no thread to be had, the calling one does that part too.
template <typename Work>
void inParts(size_t count, size_t parts, Work&& work) {
    constexpr std::launch kPolicy = std::launch::async | std::launch::deferred;
    const auto start = [count, parts](size_t part) { return count * part / parts; };
    std::vector<std::future<void>> others;  // each waits for its thread when it goes
    for (size_t part = 1; part < parts; ++part) {
        others.push_back(std::async(
            kPolicy, [&work, start, part] { work(part, start(part), start(part + 1)); }));
    }
    work(size_t{0}, size_t{0}, start(1));
    for (std::future<void>& other : others)
        other.get();
}

}  // namespace jet
