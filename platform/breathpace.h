// When an operation that works on the windows' own thread lets them have it.
#pragma once

#include <cstdint>

namespace platform {

// Times are milliseconds of one clock that never goes back.
class BreathPace {
  public:
    // How long windows may stay unpainted.
    static constexpr uint64_t kInterval = 40;
    // The longest that they wait for an operation to catch up.
    static constexpr uint64_t kLongestWait = 500;

    // Whether the windows are to have their turn.
    bool isDue(uint64_t now) const { return now - end_ >= wait_; }
    // They had it from `begin` to `end`. On a machine so busy that this takes long the operation
    // has as much time for itself before the next turn, or it would hardly get on.
    void breathed(uint64_t begin, uint64_t end);

  private:
    uint64_t end_ = 0;
    uint64_t wait_ = 0;
};

}  // namespace platform
