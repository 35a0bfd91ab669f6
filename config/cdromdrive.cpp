#include "config/cdromdrive.h"

#include "base/text.h"

namespace config {

std::u16string acceptedCdRomDrive(const platform::Drives& drives, std::u16string_view remembered,
                                  std::u16string_view chosen) {
    const std::u16string drive = base::upper(chosen.substr(0, 2));
    const bool isCdRom = platform::driveType(drives, drive) == platform::DriveType::CdRom;
    return isCdRom ? drive : std::u16string(remembered);
}

}  // namespace config
