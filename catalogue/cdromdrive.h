// Which drive holds the catalogued CDs. A drive is written as its letter in upper case and ":".
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/drives.h"

namespace catalogue {

// The machine's first CD-ROM drive; nothing when it has none.
std::optional<std::u16string> firstCdRomDrive(const platform::Drives& drives);

// `stored` while it names a CD-ROM drive of the machine, otherwise the first CD-ROM drive. With no
// such drive `stored` stays, so that a machine without one forgets nothing.
std::u16string checkedCdRomDrive(const platform::Drives& drives, std::u16string_view stored);

// What the main window shows of it: "E:\".
std::u16string driveLabel(std::u16string_view cdRomDrive);

}  // namespace catalogue
