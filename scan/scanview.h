// What a scan needs of the window in front of it.
#pragma once

#include <string_view>

namespace scan {

class WalkView {
  public:
    virtual ~WalkView() = default;
    // Makes the waiting label visible and repaints it at once.
    virtual void showWaiting() = 0;
    // Called for every folder entry and for every analysed file: the chance to keep the windows
    // painted. It must not let the user start anything.
    virtual void keepAlive() = 0;
};

class ScanView : public WalkView {
  public:
    // Makes `caption` the waiting label's text and repaints it at once.
    virtual void setWaitingCaption(std::u16string_view caption) = 0;
    // How much of the analysis is done, for views that draw it, too: the number in the caption.
    virtual void setPercentage(int /*percent*/) {}
};

}  // namespace scan
