// Drives that a test sets up.
#pragma once

#include <set>
#include <utility>
#include <vector>

#include "platform/drives.h"

namespace fakes {

class FakeDrives : public platform::Drives {
  public:
    FakeDrives() = default;
    explicit FakeDrives(std::vector<platform::Drive> drives) : drives_(std::move(drives)) {}

    void add(char16_t letter, platform::DriveType type) { drives_.push_back({letter, type}); }
    // How often isReady answers false for the drive before its medium is there.
    void setNotReady(char16_t letter, int times) {
        for (int i = 0; i < times; ++i)
            notReady_.insert(letter);
    }

    std::vector<platform::Drive> list() const override { return drives_; }
    bool isReady(char16_t letter) const override {
        const auto found = notReady_.find(letter);
        if (found == notReady_.end()) return true;
        notReady_.erase(found);
        return false;
    }

  private:
    std::vector<platform::Drive> drives_;
    mutable std::multiset<char16_t> notReady_;
};

}  // namespace fakes
