// A scan's window that remembers what it was told.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "scan/scanview.h"

namespace fakes {

class RecordingScanView : public scan::ScanView {
  public:
    void showWaiting() override { ++waitingShown; }
    void keepAlive() override {
        ++timesKeptAlive;
        if (whileAlive) whileAlive();
    }
    void setWaitingCaption(std::u16string_view caption) override { captions.emplace_back(caption); }

    void setPercentage(int percent) override { percentages.push_back(percent); }

    int waitingShown = 0;
    int timesKeptAlive = 0;
    std::vector<std::u16string> captions;
    std::vector<int> percentages;
    std::function<void()> whileAlive;  // what happens meanwhile
};

}  // namespace fakes
