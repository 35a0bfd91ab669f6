// The drives of the running system.
#pragma once

#include <string>

#include "platform/drives.h"

namespace platform::win32 {

class Win32Drives : public Drives {
  public:
    std::vector<Drive> list() const override;
    bool isReady(char16_t letter) const override;

    // The name of the medium in the drive, empty when it has none or there is no medium.
    std::u16string volumeLabel(char16_t letter) const;
};

}  // namespace platform::win32
