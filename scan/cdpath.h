// How paths stand in the catalogue: those of a CD-ROM without their drive, which may bear another
// letter tomorrow.
#pragma once

#include <string>
#include <string_view>

#include "platform/drives.h"

namespace scan {

// What stands for the drive letter and colon of a CD-ROM drive.
inline constexpr std::u16string_view kCdMark = u"[CD]";

// `path` as the catalogue stores it when it was found on a drive of that type.
std::u16string StoredPath(std::u16string_view path, platform::DriveType type);

// Whether a stored path lies on a CD-ROM, whatever its drive.
bool isOnCd(std::u16string_view storedPath);

// The path of a stored one now: a CD-ROM's files are in `cdRomDrive` ("E:"), whatever drive they
// were found in.
std::u16string RealPath(std::u16string_view storedPath, std::u16string_view cdRomDrive);

}  // namespace scan
