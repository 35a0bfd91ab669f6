#include "newcd/FrmNouveauDossier.h"

#include "base/filename.h"
#include "base/text.h"
#include "newcd/FrmNouveauDossier.ids.h"
#include "newcd/conflictnames.h"
#include "platform/win32/ui/controls.h"

namespace newcd {

namespace ui = platform::win32;

std::optional<std::u16string> FrmNouveauDossier::ask(HWND owner) {
    create(owner);
    return runModal() == IDOK ? std::optional(name_) : std::nullopt;
}

void FrmNouveauDossier::onLoad() {
    nameFilter_.emplace(item(FrmNouveauDossier_TextDossier), base::nameKey, ui::Paste::Filtered);
    ui::setFocus(item(FrmNouveauDossier_TextDossier));
}

void FrmNouveauDossier::onCommand(int id, int notification) {
    switch (id) {
        case FrmNouveauDossier_TextDossier:
            if (notification == EN_CHANGE) TextDossier_Change();
            break;
        case FrmNouveauDossier_CommandOK:
            if (notification == BN_CLICKED) CommandOK_Click();
            break;
        case FrmNouveauDossier_CommandAnnuler:
            if (notification == BN_CLICKED) finish();
            break;
        default:
            break;
    }
}

void FrmNouveauDossier::TextDossier_Change() {
    name_ = base::trim(ui::textOf(item(FrmNouveauDossier_TextDossier)));
    ui::setEnabled(item(FrmNouveauDossier_CommandOK), isUsableName(name_));
}

void FrmNouveauDossier::CommandOK_Click() {
    finish(IDOK);
}

}  // namespace newcd
