#include "newcd/FrmExisteFich.h"

#include <algorithm>

#include "base/filename.h"
#include "base/text.h"
#include "newcd/FrmExisteFich.ids.h"
#include "newcd/conflictnames.h"
#include "platform/win32/ui/controls.h"

namespace newcd {

namespace ui = platform::win32;

void FrmExisteFich::ask(HWND owner, std::u16string_view oldName, std::u16string_view proposedName) {
    create(owner);
    ui::setText(item(FrmExisteFich_TextAncienNom), oldName);
    const HWND newName = item(FrmExisteFich_TextNouveauNom);
    ui::setText(newName, proposedName);
    // What is typed replaces the name and leaves its type.
    const auto end = static_cast<LPARAM>(std::min(proposedName.rfind(u'.'), proposedName.size()));
    SendMessageW(newName, EM_SETSEL, 0, end);
    runModal();
}

void FrmExisteFich::onLoad() {
    // What is pasted is not looked at: a name that cannot be used brings the window back.
    nameFilter_.emplace(item(FrmExisteFich_TextNouveauNom), base::nameKey, ui::Paste::Free);
    ui::setFocus(item(FrmExisteFich_TextNouveauNom));
}

void FrmExisteFich::onCommand(int id, int notification) {
    switch (id) {
        case FrmExisteFich_TextNouveauNom:
            if (notification == EN_CHANGE) TextNouveauNom_Change();
            break;
        case FrmExisteFich_CommandOK:
            if (notification == BN_CLICKED) CommandOK_Click();
            break;
        case FrmExisteFich_Command1:
            if (notification == BN_CLICKED) Command1_Click();
            break;
        default:
            break;
    }
}

void FrmExisteFich::TextNouveauNom_Change() {
    ui::setEnabled(item(FrmExisteFich_CommandOK),
                   canAcceptName(ui::textOf(item(FrmExisteFich_TextNouveauNom))));
}

void FrmExisteFich::CommandOK_Click() {
    takeName();
    finish(IDOK);
}

void FrmExisteFich::Command1_Click() {
    run_.AutoRenameAll = 1;
    takeName();
    finish(IDOK);
}

void FrmExisteFich::takeName() {
    run_.CopyFileName = base::trim(ui::textOf(item(FrmExisteFich_TextNouveauNom)));
}

}  // namespace newcd
