#include "platform/placement.h"

#include <algorithm>

namespace platform {

Box centred(const Box& over, int width, int height) {
    return {over.left + (over.width - width) / 2, over.top + (over.height - height) / 2, width,
            height};
}

Box clamped(const Box& box, const Box& area) {
    const int width = std::min(box.width, area.width);
    const int height = std::min(box.height, area.height);
    return {std::clamp(box.left, area.left, area.left + area.width - width),
            std::clamp(box.top, area.top, area.top + area.height - height), width, height};
}

}  // namespace platform
