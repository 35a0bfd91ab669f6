#include "platform/win32/drives.h"

#include <windows.h>

#include <array>
#include <optional>

#include "platform/win32/wide.h"

namespace platform::win32 {
namespace {

// Keeps the system from asking the user to insert a disk while a drive is being looked at.
class QuietErrors {
  public:
    QuietErrors() { SetThreadErrorMode(SEM_FAILCRITICALERRORS, &before_); }
    ~QuietErrors() { SetThreadErrorMode(before_, nullptr); }
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;

  private:
    DWORD before_ = 0;
};

std::wstring rootOf(char16_t letter) {
    return std::wstring{static_cast<wchar_t>(letter), L':', L'\\'};
}

DriveType typeOf(char16_t letter) {
    switch (GetDriveTypeW(rootOf(letter).c_str())) {
        case DRIVE_REMOVABLE:
            return DriveType::Removable;
        case DRIVE_FIXED:
            return DriveType::Fixed;
        case DRIVE_REMOTE:
            return DriveType::Remote;
        case DRIVE_CDROM:
            return DriveType::CdRom;
        case DRIVE_RAMDISK:
            return DriveType::RamDisk;
        default:
            return DriveType::Unknown;
    }
}

// Nothing when no medium can be read.
std::optional<std::u16string> readLabel(char16_t letter) {
    const QuietErrors quiet;
    std::array<wchar_t, MAX_PATH + 1> label{};
    if (!GetVolumeInformationW(rootOf(letter).c_str(), label.data(),
                               static_cast<DWORD>(label.size()), nullptr, nullptr, nullptr, nullptr,
                               0)) {
        return std::nullopt;
    }
    return fromWide(label.data());
}

bool rootExists(char16_t letter) {
    const QuietErrors quiet;
    return GetFileAttributesW(rootOf(letter).c_str()) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace

std::vector<Drive> Win32Drives::list() const {
    std::vector<Drive> drives;
    const DWORD present = GetLogicalDrives();
    for (int index = 0; index < 26; ++index) {
        if ((present >> index & 1) == 0) continue;
        const char16_t letter = static_cast<char16_t>(u'A' + index);
        drives.push_back({letter, typeOf(letter)});
    }
    return drives;
}

bool Win32Drives::isReady(char16_t letter) const {
    // A system may remember the label of a medium that is gone, but not its root folder.
    return readLabel(letter).has_value() && rootExists(letter);
}

std::u16string Win32Drives::volumeLabel(char16_t letter) const {
    return readLabel(letter).value_or(u"");
}

}  // namespace platform::win32
