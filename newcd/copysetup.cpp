#include "newcd/copysetup.h"

#include "base/text.h"
#include "newcd/copyrules.h"

namespace newcd {
namespace {

constexpr int kFirstDuplicateOption = 3;

}  // namespace

CopySetup presetCopySetup(const catalogue::Settings& settings) {
    return {.DriveSource = settings.CdRomDrive,
            .Drivedestin = settings.DestinationDrive,
            .DirDestin = settings.CopyDestination,
            .TextCopy = {},
            .catalogueOption = static_cast<int>(catalogueRule(settings)),
            .duplicateOption = static_cast<int>(duplicateRule(settings)) + kFirstDuplicateOption,
            .CheckRepert = settings.CopyOption3 != 0};
}

void acceptCopySetup(const CopySetup& setup, catalogue::Settings& settings, RunState& run) {
    settings.CdRomDrive = base::upper(setup.DriveSource);
    settings.DestinationDrive = setup.Drivedestin;
    settings.CopyDestination = setup.DirDestin;
    settings.CopyOption1 = static_cast<uint8_t>(setup.catalogueOption);
    settings.CopyOption2 = static_cast<uint8_t>(setup.duplicateOption - kFirstDuplicateOption);
    settings.CopyOption3 = setup.CheckRepert ? 1 : 0;
    run.CopyFilterText = base::upper(base::trim(setup.TextCopy));
    run.scan.ScanAnswer = 0;
}

char16_t filterTextKey(char16_t typed) {
    return typed == u'"' ? u'\'' : typed;
}

}  // namespace newcd
