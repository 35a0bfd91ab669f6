#include "platform/breathpace.h"

#include <algorithm>

namespace platform {

void BreathPace::breathed(uint64_t begin, uint64_t end) {
    end_ = end;
    wait_ = std::clamp(end - begin, kInterval, kLongestWait);
}

}  // namespace platform
