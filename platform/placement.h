// Where windows go on the screen. Device pixels throughout.
#pragma once

namespace platform {

struct Box {
    int left;
    int top;
    int width;
    int height;
    bool operator==(const Box&) const = default;
};

// A box of that size whose centre is `over`'s.
Box centred(const Box& over, int width, int height);

// `box` moved the least that brings it into `area`; where it is too large it is cut to the area.
Box clamped(const Box& box, const Box& area);

}  // namespace platform
