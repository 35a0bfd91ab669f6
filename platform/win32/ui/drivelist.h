// A combo box that lists the machine's drives.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "platform/drives.h"

namespace platform::win32 {

// Each row is "E:", followed by the medium's name in brackets where there is one.
class DriveList {
  public:
    // `combo` is a drop-down list; it and `drives` must outlive the object.
    DriveList(HWND combo, const Drives& drives) : combo_(combo), drives_(drives) {}

    // Lists the drives anew, media included, and chooses `drive` ("e:", anything may follow), or
    // the first one when it is not there.
    void fill(std::u16string_view drive);
    // The same, keeping the choice; for the moment the list drops down.
    void refill();

    // The chosen row's text; empty when there is no drive at all.
    std::u16string drive() const;

  private:
    HWND combo_;
    const Drives& drives_;
};

}  // namespace platform::win32
