// The choice of the CD-ROM drive.
#pragma once

#include <string>
#include <string_view>

#include "platform/drives.h"

namespace config {

// The drive in force after the user has chosen `chosen`, a drive as the drive list shows it ("d:",
// perhaps with its label behind): that drive in upper case when it is a CD-ROM drive, otherwise
// `remembered`, the one before, without a word. Throws when the drive has gone meanwhile.
std::u16string acceptedCdRomDrive(const platform::Drives& drives, std::u16string_view remembered,
                                  std::u16string_view chosen);

}  // namespace config
