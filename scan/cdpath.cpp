#include "scan/cdpath.h"

#include <algorithm>

namespace scan {
namespace {

constexpr size_t kDriveLength = 2;  // letter and colon

std::u16string_view without(std::u16string_view path, size_t first) {
    return path.substr(std::min(first, path.size()));
}

}  // namespace

std::u16string StoredPath(std::u16string_view path, platform::DriveType type) {
    if (type != platform::DriveType::CdRom) return std::u16string(path);
    return std::u16string(kCdMark).append(without(path, kDriveLength));
}

bool isOnCd(std::u16string_view storedPath) {
    return storedPath.starts_with(kCdMark.front());
}

std::u16string RealPath(std::u16string_view storedPath, std::u16string_view cdRomDrive) {
    if (!isOnCd(storedPath)) return std::u16string(storedPath);
    return std::u16string(cdRomDrive.substr(0, kDriveLength))
        .append(without(storedPath, kCdMark.size()));
}

}  // namespace scan
