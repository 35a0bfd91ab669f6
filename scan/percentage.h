// How far a long operation is, told only when the whole percentage changes.
#pragma once

#include <cstdint>
#include <optional>

namespace scan {

class Percentage {
  public:
    explicit Percentage(int64_t total) : total_(total) {}

    // The whole part of `done` in percent of the total, which is not 0; nothing when the call
    // before gave the same.
    std::optional<int64_t> change(int64_t done) {
        const int64_t percent = done * 100 / total_;
        if (percent == shown_) return std::nullopt;
        shown_ = percent;
        return percent;
    }

  private:
    int64_t total_;
    int64_t shown_ = -1;
};

}  // namespace scan
