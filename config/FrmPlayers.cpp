#include "config/FrmPlayers.h"

#include "base/error.h"
#include "config/FrmPlayers.ids.h"
#include "platform/win32/ui/accessible.h"
#include "platform/win32/ui/controls.h"
#include "platform/win32/ui/dpi.h"
#include "platform/win32/ui/filedialog.h"
#include "platform/win32/ui/pictures.h"
#include "platform/win32/ui/tooltips.h"

namespace config {
namespace {

namespace ui = platform::win32;

constexpr int kPictureSize = 16;
constexpr std::u16string_view kPictureName = u"Choisir le fichier du lecteur";

}  // namespace

FrmPlayers::FrmPlayers(catalogue::Settings& settings, const platform::System& system,
                       std::u16string_view AppPath, std::function<void()> playerChanged)
    : Dialog(L"FrmPlayers"),
      settings_(settings),
      AppPath_(AppPath),
      editor_(settings, system.files, system.messages),
      playerChanged_(std::move(playerChanged)) {}

void FrmPlayers::onLoad() {
    // Whole paths can be pasted; only typing is held back.
    filter_.emplace(item(FrmPlayers_TextChemin), pathKey, ui::Paste::Free);
    showPicture();
    ui::setAccessibleName(item(FrmPlayers_Picture1), kPictureName);
    ui::Tooltips(window()).set(item(FrmPlayers_Picture1), kPictureName);
    fillList();
    show();
    ui::setFocus(item(settings_.NbPlayers > 0 ? FrmPlayers_ListPlayers : FrmPlayers_TextNom));
}

std::optional<LRESULT> FrmPlayers::onMessage(UINT message, WPARAM, LPARAM) {
    // The dialog manager scales all else.
    if (message == WM_DPICHANGED) showPicture();
    return std::nullopt;
}

void FrmPlayers::onCommand(int id, int notification) {
    switch (id) {
        case FrmPlayers_ListPlayers:
            if (notification == LBN_SELCHANGE) ListPlayers_Click();
            // Enter chooses in the list and adds in the boxes.
            if (notification == LBN_SETFOCUS) setDefaultButton(FrmPlayers_CommandOK);
            break;
        case FrmPlayers_TextNom:
            if (notification == EN_CHANGE) TextNom_Change();
            if (notification == EN_SETFOCUS) setDefaultButton(FrmPlayers_CommandAjouter);
            break;
        case FrmPlayers_TextChemin:
            if (notification == EN_CHANGE) TextChemin_Change();
            if (notification == EN_SETFOCUS) setDefaultButton(FrmPlayers_CommandAjouter);
            break;
        default:
            if (notification == BN_CLICKED) onClick(id);
            break;
    }
}

void FrmPlayers::onClick(int id) {
    switch (id) {
        case FrmPlayers_Picture1:
            Picture1_Click();
            break;
        case FrmPlayers_CommandAjouter:
            CommandAjouter_Click();
            break;
        case FrmPlayers_CommandSupprimer:
            CommandSupprimer_Click();
            break;
        case FrmPlayers_CommandOK:
            CommandOK_Click();
            break;
        default:
            break;
    }
}

void FrmPlayers::show() {
    ui::setText(item(FrmPlayers_TextNom), editor_.TextNom());
    ui::setText(item(FrmPlayers_TextChemin), editor_.TextChemin());
    showButtons();
}

void FrmPlayers::showButtons() {
    ui::setEnabled(item(FrmPlayers_CommandAjouter), editor_.ajouterEnabled());
    ui::setEnabled(item(FrmPlayers_CommandSupprimer), editor_.supprimerEnabled());
}

void FrmPlayers::fillList() {
    ui::fillListBox(item(FrmPlayers_ListPlayers), FillPlayersList(settings_));
}

void FrmPlayers::showPicture() {
    picture_ = ui::loadIcon(L"parcourir", ui::scaled(kPictureSize, dpi()));
    SendMessageW(item(FrmPlayers_Picture1), BM_SETIMAGE, IMAGE_ICON,
                 reinterpret_cast<LPARAM>(picture_.get()));
}

void FrmPlayers::setDefaultButton(int id) {
    SendMessageW(window(), DM_SETDEFID, static_cast<WPARAM>(id), 0);
}

std::u16string FrmPlayers::chosenPlayer() const {
    const HWND list = item(FrmPlayers_ListPlayers);
    return ui::listBoxText(list, ui::listBoxChoice(list));
}

void FrmPlayers::ListPlayers_Click() {
    editor_.ListPlayers_Click(chosenPlayer());
    show();
}

void FrmPlayers::TextNom_Change() {
    editor_.TextNom_Change(ui::textOf(item(FrmPlayers_TextNom)));
    showButtons();
}

void FrmPlayers::TextChemin_Change() {
    editor_.TextChemin_Change(ui::textOf(item(FrmPlayers_TextChemin)));
    showButtons();
}

void FrmPlayers::Picture1_Click() {
    using namespace std::string_view_literals;
    const ui::FileDialog CommonDialog2 = {
        u"Nom du fichier à utiliser pour la lecture des morceaux",
        u"Exécutable (*.exe) \0*.exe\0Tous les fichiers (*.*) \0*.*\0"sv, u"", AppPath_};
    try {
        if (const auto path = ui::chooseFileToOpen(window(), CommonDialog2))
            ui::setText(item(FrmPlayers_TextChemin), *path);
    } catch (const base::Error&) {
        // A dialog that cannot be shown counts as one that was cancelled.
    }
}

void FrmPlayers::CommandAjouter_Click() {
    const bool added = editor_.CommandAjouter_Click();
    show();
    ui::setFocus(item(added ? FrmPlayers_TextNom : FrmPlayers_TextChemin));
    if (!added) return;
    fillList();
    playerChanged_();
}

void FrmPlayers::CommandSupprimer_Click() {
    const bool deleted = editor_.CommandSupprimer_Click();
    show();
    ui::setFocus(item(FrmPlayers_TextNom));
    if (!deleted) return;
    fillList();
    playerChanged_();
}

void FrmPlayers::CommandOK_Click() {
    if (ui::listBoxChoice(item(FrmPlayers_ListPlayers)) >= 0) {
        editor_.CommandOK_Click(chosenPlayer());
        playerChanged_();
    }
    finish(IDOK);
}

}  // namespace config
