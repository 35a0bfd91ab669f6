#include "newcd/runlayout.h"

#include <algorithm>

#include "platform/pixels.h"

namespace newcd {
namespace {

using platform::Box;
using platform::scaled;

// Design pixels.
constexpr int kMargin = 12;
constexpr int kGap = 8;
constexpr int kBarHeight = 12;
constexpr int kButtonWidth = 128;
constexpr int kButtonHeight = 26;

// The window in bands over its whole inner width.
struct Bands {
    Box headings{};
    Box lists{};
    Box progress{};
    Box bar{};
    Box buttons{};
};

Bands bandsOf(const RunMetrics& metrics) {
    const int margin = scaled(kMargin, metrics.dpi);
    const int gap = scaled(kGap, metrics.dpi);
    const int width = std::max(metrics.clientWidth - 2 * margin, 0);
    // From the bottom up, each band above the one before.
    int edge = metrics.clientHeight - margin;
    const auto above = [&](int height, int distance) {
        edge -= height;
        const Box band = {margin, edge, width, height};
        edge -= distance;
        return band;
    };
    Bands bands;
    bands.buttons = above(scaled(kButtonHeight, metrics.dpi), gap);
    bands.bar = above(scaled(kBarHeight, metrics.dpi), gap);
    bands.progress = above(metrics.progressHeight, gap);
    bands.headings = {margin, gap, width, metrics.headingHeight};
    const int top = gap + metrics.headingHeight + gap / 2;
    bands.lists = {margin, top, width, std::max(edge - top, 0)};
    return bands;
}

}  // namespace

int runListWidth(int dpi, int clientWidth, int lists) {
    return std::max((clientWidth - (lists + 1) * scaled(kMargin, dpi)) / lists, 0);
}

SearchLayout layOutSearch(const RunMetrics& metrics) {
    const Bands bands = bandsOf(metrics);
    const int width = runListWidth(metrics.dpi, metrics.clientWidth, 2);
    const auto left = [&](Box band) {
        band.width = width;
        return band;
    };
    // The right one takes the odd pixel.
    const auto right = [&](Box band) {
        const int offset = width + scaled(kMargin, metrics.dpi);
        band.left += offset;
        band.width = std::max(band.width - offset, 0);
        return band;
    };
    SearchLayout layout;
    layout.Label1 = {left(bands.headings), right(bands.headings)};
    layout.List1 = left(bands.lists);
    layout.List2 = right(bands.lists);
    layout.Label2 = bands.progress;
    layout.progressBar = bands.bar;
    layout.CommandOkannul =
        platform::centred(bands.buttons, scaled(kButtonWidth, metrics.dpi), bands.buttons.height);
    return layout;
}

CopyLayout layOutCopy(const RunMetrics& metrics) {
    const Bands bands = bandsOf(metrics);
    const int button = scaled(kButtonWidth, metrics.dpi);
    const int gap = scaled(kGap, metrics.dpi);
    const Box pair = platform::centred(bands.buttons, 2 * button + gap, bands.buttons.height);
    CopyLayout layout;
    layout.LabelTitrelist = bands.headings;
    layout.ListInfocopy = bands.lists;
    layout.LabelInfoCopy = bands.progress;
    layout.progressBar = bands.bar;
    layout.CommandCopier = {pair.left, pair.top, button, pair.height};
    layout.ComAnnuleCopie = {pair.left + button + gap, pair.top, button, pair.height};
    return layout;
}

}  // namespace newcd
