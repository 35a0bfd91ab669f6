#include "newcd/FrmNewCd.h"

#include <utility>

#include "catalogue/cdromdrive.h"
#include "config/cdromdrive.h"
#include "newcd/FrmCDcopy.h"
#include "newcd/FrmInfoCopy.h"
#include "newcd/FrmInfoRech.h"
#include "newcd/FrmRechCD.h"

namespace newcd {
namespace {

RunTools toolsOf(const Program& program) {
    const platform::System& system = program.system;
    return {.files = system.files,
            .copier = system.copier,
            .messages = system.messages,
            .codePage = system.codePage,
            .catalogue = program.catalogue,
            .settings = program.settings,
            .AppPath = program.AppPath,
            .decimalSeparator = system.decimalSeparator};
}

// On a machine without a CD-ROM drive the one from before the run comes back.
void restoreCdRomDrive(const Program& program, std::u16string_view before) {
    program.settings.CdRomDrive =
        catalogue::firstCdRomDrive(program.system.drives).value_or(std::u16string(before));
}

}  // namespace

void searchKnownTitles(const Program& program, const catalogue::ListLook& look, HWND owner) {
    program.scanState.ScanAnswer = 1;
    const std::u16string before = program.settings.CdRomDrive;
    if (!FrmRechCD(program.settings, program.system.drives, program.scanState)
             .askDriveToSearch(owner)) {
        return;
    }
    const RunTools tools = toolsOf(program);
    RunState run(program.scanState);
    FrmInfoRech(tools, run, program.settings, look, program.system.programs).run(owner);
    restoreCdRomDrive(program, before);
}

void copyMusicFiles(const Program& program, const catalogue::ListLook& look, HWND owner) {
    program.scanState.ScanAnswer = 1;
    const std::u16string before = program.settings.CdRomDrive;
    RunState run(program.scanState);
    if (!FrmCDcopy(program.system, program.settings, run).ask(owner)) return;
    const RunTools tools = toolsOf(program);
    FrmInfoCopy(tools, run, program.settings, look, program.system.programs).run(owner);
    restoreCdRomDrive(program, before);
}

void chooseCdRomDrive(const Program& program, HWND owner) {
    catalogue::Settings& settings = program.settings;
    const std::u16string remembered = settings.CdRomDrive;
    const platform::Drives& drives = program.system.drives;
    if (!FrmRechCD(settings, drives, program.scanState).askCdRomDrive(owner)) return;
    // A drive that has gone meanwhile leaves the one before in force.
    const std::u16string chosen = std::exchange(settings.CdRomDrive, remembered);
    settings.CdRomDrive = config::acceptedCdRomDrive(drives, remembered, chosen);
}

}  // namespace newcd
