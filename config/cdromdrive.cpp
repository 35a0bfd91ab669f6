#include "config/cdromdrive.h"

#include "base/error.h"
#include "base/text.h"

namespace config {

std::u16string acceptedCdRomDrive(const platform::Drives& drives, std::u16string_view remembered,
                                  std::u16string_view chosen) {
    const std::u16string drive = base::upper(chosen.substr(0, 2));
    if (drive.size() < 2 || drive[1] != u':') return std::u16string(remembered);
    for (const platform::Drive& each : drives.list()) {
        if (each.letter != drive[0]) continue;
        return each.type == platform::DriveType::CdRom ? drive : std::u16string(remembered);
    }
    throw base::Error(
        base::ErrorNumber::DeviceUnavailable,
        u"Le lecteur " + drive +
            u" n'est plus là. Rebranchez-le ou choisissez un autre lecteur de CD ROM.");
}

}  // namespace config
