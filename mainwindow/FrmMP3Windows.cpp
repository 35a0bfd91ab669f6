// The handlers of the main window that open other windows.
#include "config/FrmExtension.h"
#include "config/FrmPlayers.h"
#include "help/FrmApropos.h"
#include "mainwindow/FrmMP3.h"
#include "mainwindow/FrmMP3.ids.h"
#include "newcd/FrmNewCd.h"
#include "platform/win32/ui/controls.h"

namespace mainwindow {

namespace ui = platform::win32;

void FrmMP3::ComNouveau_Click() {
    const bool scanned = scan::FrmNouveauCD(scanProgram()).addCd(window());
    // The drive that was scanned is the one that tracks are played from now.
    showCdRomDrive();
    if (!scanned) return;
    program_.RefillCdList();
    chooseCd(program_.settings.ScanCdName);
    ui::setFocus(item(FrmMP3_List1));
}

void FrmMP3::menuscan_Click() {
    if (cdRow() <= kAllCdsRow) return;
    const std::u16string name = cdName();
    if (!scan::FrmNouveauCD(scanProgram()).rescan(window(), name)) return;
    // A CD without music any more leaves the list.
    program_.RefillCdList();
    chooseCd(name);
}

scan::FrmNouveauCD::Program FrmMP3::scanProgram() const {
    return {program_.system, program_.settings, program_.catalogue, program_.scanState,
            program_.AppPath};
}

void FrmMP3::menuRechercheCD_Click() {
    newcd::searchKnownTitles(scanProgram(), newCdLook_, window());
    showCdRomDrive();
}

void FrmMP3::menuCopieCD_Click() {
    newcd::copyMusicFiles(scanProgram(), newCdLook_, window());
    showCdRomDrive();
}

void FrmMP3::menuCDROM_Click() {
    newcd::chooseCdRomDrive(scanProgram(), window());
    showCdRomDrive();
}

void FrmMP3::MenExt_Click() {
    config::FrmExtension dialog(program_.settings, program_.system.messages, [this] {
        formats_->listChanged();
        RefreshTrackList();
    });
    dialog.create(window());
    dialog.runModal();
}

void FrmMP3::menuChemin_Click() {
    config::FrmPlayers dialog(program_.settings, program_.system, program_.AppPath,
                              [this] { showPlayer(); });
    dialog.create(window());
    dialog.runModal();
}

void FrmMP3::menuaide_Click() {
    aide_.open(window());
}

void FrmMP3::menuapropos_Click() {
    help::FrmApropos box;
    box.create(window());
    box.runModal();
}

}  // namespace mainwindow
