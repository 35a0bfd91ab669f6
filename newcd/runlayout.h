// Where the controls of the windows of a run stand. Lengths are device pixels of the window's
// inside, except where design pixels (at 96 dots per inch) are named.
#pragma once

#include <array>

#include "platform/placement.h"

namespace newcd {

// The least outer size of both windows, and the one for lack of a stored size; design pixels.
inline constexpr int kLeastRunWidth = 480;
inline constexpr int kLeastRunHeight = 360;
inline constexpr int kUsualRunWidth = 760;
inline constexpr int kUsualRunHeight = 560;

struct RunMetrics {
    int dpi = 96;
    int clientWidth = 0;
    int clientHeight = 0;
    int headingHeight = 0;   // what the headings need at the width of their lists
    int progressHeight = 0;  // what the progress label's longest text needs
};

// The windows from top to bottom: headings, lists, progress label, progress bar, buttons. The lists
// take all height that is left.
struct SearchLayout {
    std::array<platform::Box, 2> Label1{};
    platform::Box List1{};
    platform::Box List2{};
    platform::Box Label2{};
    platform::Box progressBar{};
    platform::Box CommandOkannul{};
};
SearchLayout layOutSearch(const RunMetrics& metrics);

struct CopyLayout {
    platform::Box LabelTitrelist{};
    platform::Box ListInfocopy{};
    platform::Box LabelInfoCopy{};
    platform::Box progressBar{};
    platform::Box CommandCopier{};
    platform::Box ComAnnuleCopie{};
};
CopyLayout layOutCopy(const RunMetrics& metrics);

// The width of one list out of `lists` that stand side by side.
int runListWidth(int dpi, int clientWidth, int lists);

}  // namespace newcd
