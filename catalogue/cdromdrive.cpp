#include "catalogue/cdromdrive.h"

#include "base/text.h"

namespace catalogue {
namespace {

std::u16string driveName(const platform::Drive& drive) {
    return {base::upper(drive.letter), u':'};
}

}  // namespace

std::optional<std::u16string> firstCdRomDrive(const platform::Drives& drives) {
    for (const platform::Drive& drive : drives.list()) {
        if (drive.type == platform::DriveType::CdRom) return driveName(drive);
    }
    return std::nullopt;
}

std::u16string checkedCdRomDrive(const platform::Drives& drives, std::u16string_view stored) {
    for (const platform::Drive& drive : drives.list()) {
        if (drive.type == platform::DriveType::CdRom && driveName(drive) == stored)
            return std::u16string(stored);
    }
    return firstCdRomDrive(drives).value_or(std::u16string(stored));
}

std::u16string driveLabel(std::u16string_view cdRomDrive) {
    return std::u16string(cdRomDrive.substr(0, 1)) + u":\\";
}

}  // namespace catalogue
