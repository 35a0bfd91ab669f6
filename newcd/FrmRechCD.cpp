#include "newcd/FrmRechCD.h"

#include <array>

#include "base/text.h"
#include "newcd/FrmRechCD.ids.h"
#include "platform/win32/ui/controls.h"
#include "platform/win32/ui/place.h"

namespace newcd {

namespace ui = platform::win32;

FrmRechCD::FrmRechCD(catalogue::Settings& settings, const platform::Drives& drives,
                     scan::ScanState& scanState)
    : Dialog(L"FrmRechCD"), settings_(settings), drives_(drives), scanState_(scanState) {}

bool FrmRechCD::askDriveToSearch(HWND owner) {
    create(owner);
    return runModal() == IDOK;
}

bool FrmRechCD::askCdRomDrive(HWND owner) {
    create(owner);
    relabel();
    return runModal() == IDOK;
}

void FrmRechCD::onLoad() {
    DriveRech_.emplace(item(FrmRechCD_DriveRech), drives_);
    DriveRech_->fill(settings_.CdRomDrive);
    ui::setEnabled(item(FrmRechCD_CommandOK), !DriveRech_->drive().empty());
    ui::setFocus(item(FrmRechCD_DriveRech));
}

void FrmRechCD::relabel() {
    ui::setText(window(), u"Choix du lecteur de CD ROM");
    ui::setText(item(FrmRechCD_LabelRech), u"Sélectionnez le lecteur de CD ROM de votre choix");
    ui::setVisible(item(FrmRechCD_LabelRechtitre), false);
    const int gap = ui::controlBox(item(FrmRechCD_FrameRech)).top -
                    ui::controlBox(item(FrmRechCD_LabelRechtitre)).top;
    constexpr std::array below = {FrmRechCD_FrameRech, FrmRechCD_LabelRech, FrmRechCD_DriveRech,
                                  FrmRechCD_CommandOK, FrmRechCD_CommandAnnul};
    for (const int control : below)
        ui::shiftControl(item(control), 0, -gap);
    platform::Box box = ui::windowBox(window());
    box.height -= gap;
    ui::moveWindow(window(), box);
    ui::placeOverOwner(window());
}

void FrmRechCD::onCommand(int id, int notification) {
    switch (id) {
        case FrmRechCD_DriveRech:
            if (notification == CBN_DROPDOWN) DriveRech_->refill();
            break;
        case FrmRechCD_CommandOK:
            if (notification == BN_CLICKED) CommandOK_Click();
            break;
        case FrmRechCD_CommandAnnul:
            if (notification == BN_CLICKED) finish();
            break;
        default:
            break;
    }
}

void FrmRechCD::CommandOK_Click() {
    settings_.CdRomDrive = base::upper(DriveRech_->drive());
    scanState_.ScanAnswer = 0;
    finish(IDOK);
}

}  // namespace newcd
