#include "platform/drives.h"

#include "base/text.h"

namespace platform {

DriveType driveType(const Drives& drives, std::u16string_view path) {
    if (path.size() < 2 || path[1] != u':') return DriveType::Unknown;
    const char16_t letter = base::upper(path[0]);
    for (const Drive& drive : drives.list()) {
        if (drive.letter == letter) return drive.type;
    }
    return DriveType::Unknown;
}

}  // namespace platform
