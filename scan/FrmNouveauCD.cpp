#include "scan/FrmNouveauCD.h"

#include <commctrl.h>

#include "base/filename.h"
#include "base/text.h"
#include "platform/win32/ui/controls.h"
#include "scan/FrmNouveauCD.ids.h"
#include "scan/cdname.h"

namespace scan {

namespace ui = platform::win32;

FrmNouveauCD::FrmNouveauCD(const Program& program) : Dialog(L"FrmNouveauCD"), program_(program) {}

void FrmNouveauCD::onLoad() {
    nameFilter_.emplace(item(FrmNouveauCD_TextNouveau), base::nameKey, ui::Paste::Filtered);
    SendMessageW(item(FrmNouveauCD_TextNouveau), EM_SETLIMITTEXT, kLongestCdName, 0);
    drives_.emplace(item(FrmNouveauCD_DriveNouveau), program_.system.drives);
    drives_->fill(program_.settings.CdRomDrive);
    waitingCaption_ = ui::textOf(item(FrmNouveauCD_LabelPatientez));
    ui::setFocus(item(FrmNouveauCD_TextNouveau));
}

void FrmNouveauCD::onCommand(int id, int notification) {
    if (scanning_) return;
    switch (id) {
        case FrmNouveauCD_TextNouveau:
            if (notification == EN_CHANGE) TextNouveau_Change();
            break;
        case FrmNouveauCD_DriveNouveau:
            if (notification == CBN_DROPDOWN) drives_->refill();
            break;
        case FrmNouveauCD_CommandNouveauOK:
            if (notification == BN_CLICKED) CommandNouveauOK_Click();
            break;
        case FrmNouveauCD_CommandNouveauAnnuler:
            if (notification == BN_CLICKED) finish();
            break;
        default:
            break;
    }
}

// A scan runs to its end: half a CD would be worse than a wait.
void FrmNouveauCD::onClose() {
    if (!scanning_) finish();
}

void FrmNouveauCD::TextNouveau_Change() {
    ui::setEnabled(item(FrmNouveauCD_CommandNouveauOK),
                   isCdName(ui::textOf(item(FrmNouveauCD_TextNouveau))));
}

void FrmNouveauCD::CommandNouveauOK_Click() {
    program_.settings.ScanCdName = base::trim(ui::textOf(item(FrmNouveauCD_TextNouveau)));
    // Without the medium's name, so that the settings know the drive again at the next start.
    program_.settings.CdRomDrive = base::upper(drives_->drive().substr(0, 2));
    // After an error the window can be used and closed again.
    struct Scanning {
        FrmNouveauCD& form;
        explicit Scanning(FrmNouveauCD& window) : form(window) { form.setScanning(true); }
        Scanning(const Scanning&) = delete;
        Scanning& operator=(const Scanning&) = delete;
        ~Scanning() { form.setScanning(false); }
    };
    {
        const Scanning scanning(*this);
        ScanDriveIntoCatalogue(tools(), program_.settings, program_.scanState, *this);
    }
    finish(IDOK);
}

bool FrmNouveauCD::addCd(HWND owner) {
    create(owner);
    return runModal() == IDOK;
}

bool FrmNouveauCD::rescan(HWND owner, std::u16string_view cdName) {
    owner_ = owner;
    return RescanCd(tools(), program_.settings, program_.scanState, *this, cdName) !=
           ScanResult::Refused;
}

ScanTools FrmNouveauCD::tools() const {
    const platform::System& system = program_.system;
    return {{system.files, system.messages, system.codePage},
            system.drives,
            program_.catalogue,
            program_.AppPath};
}

void FrmNouveauCD::setScanning(bool scanning) {
    scanning_ = scanning;
    for (const int button : {FrmNouveauCD_CommandNouveauOK, FrmNouveauCD_CommandNouveauAnnuler})
        ui::setVisible(item(button), !scanning);
    for (const int control : {FrmNouveauCD_TextNouveau, FrmNouveauCD_DriveNouveau})
        ui::setEnabled(item(control), !scanning);
    setBusy(scanning ? ui::Busy::Wholly : ui::Busy::No);
    if (scanning) return;
    for (const int progress : {FrmNouveauCD_LabelPatientez, FrmNouveauCD_Progression})
        ui::setVisible(item(progress), false);
    ui::setText(item(FrmNouveauCD_LabelPatientez), waitingCaption_);
    setPercentage(0);
}

void FrmNouveauCD::load(const RescanCaptions& captions, std::u16string_view cdName) {
    create(owner_);
    ui::setText(window(), captions.window);
    ui::setText(item(FrmNouveauCD_Label1), captions.Label1);
    ui::setText(item(FrmNouveauCD_LabelNouveauNom), captions.LabelNouveauNom);
    ui::setText(item(FrmNouveauCD_LabelNouveauDrive), captions.LabelNouveauDrive);
    ui::setText(item(FrmNouveauCD_TextNouveau), cdName);
}

void FrmNouveauCD::showScanning(std::u16string_view drive) {
    drives_->fill(drive);
    setScanning(true);
    showBlocking();
}

void FrmNouveauCD::unload() {
    destroy();
}

void FrmNouveauCD::showWaiting() {
    for (const int progress : {FrmNouveauCD_LabelPatientez, FrmNouveauCD_Progression})
        ui::setVisible(item(progress), true);
    // The drive may take its time before the first of the walk's own repaints.
    RedrawWindow(window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void FrmNouveauCD::setWaitingCaption(std::u16string_view caption) {
    const HWND label = item(FrmNouveauCD_LabelPatientez);
    ui::setText(label, caption);
    UpdateWindow(label);
}

void FrmNouveauCD::setPercentage(int percent) {
    SendMessageW(item(FrmNouveauCD_Progression), PBM_SETPOS, static_cast<WPARAM>(percent), 0);
}

void FrmNouveauCD::keepAlive() {
    breather_.breathe();
}

}  // namespace scan
