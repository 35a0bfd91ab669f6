#include "mainwindow/splitter.h"

#include <algorithm>

#include "platform/pixels.h"

namespace mainwindow {
namespace {

// Design pixels.
constexpr int kNarrowestCdList = 80;
constexpr int kNarrowestTrackList = 120;

}  // namespace

void Splitter::mouseDown(int x) {
    if (!SplitStartX_) SplitStartX_ = x;
}

int Splitter::mouseMove(int x, int list1Width, int dbList2Width, int dpi) {
    if (!SplitStartX_) return 0;
    const int distance = x - *SplitStartX_;
    if (dbList2Width - distance < platform::scaled(kNarrowestTrackList, dpi) ||
        list1Width + distance < platform::scaled(kNarrowestCdList, dpi)) {
        return 0;
    }
    SplitStartX_ = x;
    return distance;
}

void Splitter::mouseUp() {
    SplitStartX_.reset();
}

int keyDistance(int wanted, int list1Width, int dbList2Width, int dpi) {
    // A list that is narrower already stays as it is.
    const int left = std::max(list1Width - platform::scaled(kNarrowestCdList, dpi), 0);
    const int right = std::max(dbList2Width - platform::scaled(kNarrowestTrackList, dpi), 0);
    return std::clamp(wanted, -left, right);
}

}  // namespace mainwindow
