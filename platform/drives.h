// The drives of the machine, as the logic sees them.
#pragma once

#include <string_view>
#include <vector>

namespace platform {

// Numbered as in the scripting file-system object model.
enum class DriveType { Unknown = 0, Removable = 1, Fixed = 2, Remote = 3, CdRom = 4, RamDisk = 5 };

struct Drive {
    char16_t letter;  // upper case
    DriveType type;
};

class Drives {
  public:
    virtual ~Drives() = default;
    // All drives in letter order.
    virtual std::vector<Drive> list() const = 0;
    // Whether a medium is in the drive and can be read. Never throws.
    virtual bool isReady(char16_t letter) const = 0;
};

// The type of the drive that `path` begins with ("E:", "e:\..."), Unknown when there is none.
DriveType driveType(const Drives& drives, std::u16string_view path);

}  // namespace platform
