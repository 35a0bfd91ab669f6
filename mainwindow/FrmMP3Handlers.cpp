// The handlers of the main window's controls and menus.
#include <array>

#include "catalogue/cdlist.h"
#include "catalogue/cdromdrive.h"
#include "config/players.h"
#include "mainwindow/FrmMP3.h"
#include "mainwindow/FrmMP3.ids.h"
#include "platform/win32/ui/clipboard.h"
#include "platform/win32/ui/controls.h"
#include "platform/win32/ui/filedialog.h"
#include "platform/win32/ui/pointer.h"

namespace mainwindow {

namespace ui = platform::win32;

void FrmMP3::onClick(int id) {
    if (formats_->CheckFormat_Click(id)) {
        refreshIfAutomatic();
        return;
    }
    switch (id) {
        case FrmMP3_Command1:
        case FrmMP3_menuactualiser:
            RefreshTrackList();
            break;
        case FrmMP3_ComNouveau:
        case FrmMP3_menunouveau:
            ComNouveau_Click();
            break;
        case FrmMP3_menuscan:
            menuscan_Click();
            break;
        case FrmMP3_menusupprimer:
            menusupprimer_Click();
            break;
        case FrmMP3_comcopier:
        case FrmMP3_menucopier:
            comcopier_Click();
            break;
        case FrmMP3_comsave:
        case FrmMP3_menurenrigtre:
            comsave_Click();
            break;
        case FrmMP3_menuquitter:
            onClose();
            break;
        case FrmMP3_menuChemin:
        case FrmMP3_LabelLecteur:
            menuChemin_Click();
            break;
        case FrmMP3_menuRechercheCD:
            menuRechercheCD_Click();
            break;
        case FrmMP3_menuCopieCD:
            menuCopieCD_Click();
            break;
        case FrmMP3_Label2:
        case FrmMP3_Image1:
        case FrmMP3_menuCDROM:
            menuCDROM_Click();
            break;
        case FrmMP3_MenExt:
            MenExt_Click();
            break;
        case FrmMP3_menufontes:
            menufontes_Click();
            break;
        case FrmMP3_menucouleurfontes:
            menucouleurfontes_Click();
            break;
        case FrmMP3_menucouleurfond:
            menucouleurfond_Click();
            break;
        case FrmMP3_Comaide:
        case FrmMP3_menuaide:
            menuaide_Click();
            break;
        case FrmMP3_menuapropos:
            menuapropos_Click();
            break;
        case FrmMP3_raccourciRecherche:
            raccourciRecherche_Click();
            break;
        case FrmMP3_Check1:
        case FrmMP3_Check3:
        case FrmMP3_CheckAutoRefresh:
        case FrmMP3_Option1:
        case FrmMP3_Option2:
        case FrmMP3_Option3:
            refreshIfAutomatic();
            break;
        case FrmMP3_CommandExtMoins:
            formats_->CommandExtMoins_Click();
            break;
        case FrmMP3_CommandExtPlus:
            formats_->CommandExtPlus_Click();
            break;
        case FrmMP3_CommandLecteurMoins:
            config::CommandLecteurMoins_Click(program_.settings);
            showPlayer();
            break;
        case FrmMP3_CommandLecteurPlus:
            config::CommandLecteurPlus_Click(program_.settings);
            showPlayer();
            break;
        default:
            break;
    }
}

// The CD list and what follows from it.

void FrmMP3::clearList1() {
    ui::fillListBox(item(FrmMP3_List1), {});
}

void FrmMP3::fillList1(const std::vector<std::u16string>& rows) {
    ui::fillListBox(item(FrmMP3_List1), rows);
}

int FrmMP3::cdRow() const {
    return ui::listBoxChoice(item(FrmMP3_List1));
}

std::u16string FrmMP3::cdName() const {
    return ui::listBoxText(item(FrmMP3_List1), cdRow());
}

void FrmMP3::chooseCd(std::u16string_view name) {
    const HWND list = item(FrmMP3_List1);
    // The exact text: the list box itself would take one that differs in case.
    const auto rows = static_cast<int>(SendMessageW(list, LB_GETCOUNT, 0, 0));
    for (int row = kAllCdsRow + 1; row < rows; ++row) {
        if (ui::listBoxText(list, row) == name) {
            ui::chooseInListBox(list, row);
            List1_Click();
            return;
        }
    }
    forgetCd();
}

void FrmMP3::List1_Click() {
    enableCdControls(cdRow() != kNoCdRow);
    RefreshTrackList();
}

void FrmMP3::List1_RightClick(int row) {
    ui::chooseInListBox(item(FrmMP3_List1), row);
    List1_Click();
    menuscan_Click();
}

void FrmMP3::DBList2_RightMouseDown(size_t row) {
    infoTitre_.show(window(), tracks_->info(row, program_.system, program_.settings));
}

void FrmMP3::DBList2_ContextMenuKey() {
    const auto row = tracks_->list().marked();
    if (!row) return;
    infoTitre_.showForKeyboard(window(), tracks_->info(*row, program_.system, program_.settings));
}

void FrmMP3::enableCdControls(bool enabled) {
    constexpr std::array controls = {
        FrmMP3_Command1, FrmMP3_comcopier, FrmMP3_comsave, FrmMP3_Check1, FrmMP3_Check3,
        FrmMP3_Option1,  FrmMP3_Option2,   FrmMP3_Option3, FrmMP3_Label3, FrmMP3_TextRech};
    for (const int control : controls)
        ui::setEnabled(item(control), enabled);
    enableCommand(FrmMP3_menusupprimer, enabled);
    enableCommand(FrmMP3_menuactualiser, enabled);
    enableCommand(FrmMP3_menucopier, enabled);
    enableCommand(FrmMP3_menurenrigtre, enabled);
    // Only a CD of its own can be scanned again.
    enableCommand(FrmMP3_menuscan, enabled && cdRow() > kAllCdsRow);
}

void FrmMP3::enableCommand(int command, bool enabled) {
    EnableMenuItem(GetMenu(window()), static_cast<UINT>(command),
                   MF_BYCOMMAND | (enabled ? MF_ENABLED : MF_GRAYED));
}

void FrmMP3::forgetCd() {
    tracks_->clear();
    showCount();
    enableCdControls(false);
}

void FrmMP3::RefreshTrackList() {
    TrackListState state;
    state.cdRow = cdRow();
    if (state.cdRow > kAllCdsRow) state.cdName = cdName();
    state.searchText = ui::textOf(item(FrmMP3_TextRech));
    state.sortByName = ui::isChecked(item(FrmMP3_Option1));
    state.sortByPath = ui::isChecked(item(FrmMP3_Option2));
    state.sortBySize = ui::isChecked(item(FrmMP3_Option3));
    state.showPath = ui::isChecked(item(FrmMP3_Check1));
    state.showCdName = ui::isChecked(item(FrmMP3_Check3));
    const auto query = mainwindow::RefreshTrackList(state, program_.settings);
    if (!query) return;
    const ui::WaitCursor wait;
    tracks_->show(*query);
    showCount();
}

void FrmMP3::refreshIfAutomatic() {
    if (ui::isChecked(item(FrmMP3_CheckAutoRefresh))) RefreshTrackList();
}

void FrmMP3::showCount() {
    ui::setText(item(FrmMP3_Label1), countLabel(tracks_->count()));
    if (arrange_) arrange_->countChanged();
}

void FrmMP3::showPlayer() {
    ui::setText(item(FrmMP3_LabelLecteur), program_.settings.CurrentPlayerName);
    InvalidateRect(item(FrmMP3_LabelLecteur), nullptr, TRUE);
}

void FrmMP3::showCdRomDrive() {
    ui::setText(item(FrmMP3_Label2), catalogue::driveLabel(program_.settings.CdRomDrive));
}

// Commands.

void FrmMP3::menusupprimer_Click() {
    if (cdRow() == kNoCdRow) return;
    const bool all = cdRow() == kAllCdsRow;
    std::optional<ui::WaitCursor> wait;
    if (!catalogue::DeleteCd(program_.catalogue, program_.system.messages,
                             all ? std::nullopt : std::optional(cdName()),
                             [&wait] { wait.emplace(); })) {
        return;
    }
    forgetCd();
    program_.RefillCdList();
}

void FrmMP3::raccourciRecherche_Click() {
    const HWND box = item(FrmMP3_TextRech);
    if (!IsWindowEnabled(box)) return;
    ui::setFocus(box);
    SendMessageW(box, EM_SETSEL, 0, -1);
}

TrackPlayer FrmMP3::player() const {
    return {program_.system, program_.settings, program_.AppPath};
}

ExportedColumn FrmMP3::exportedColumn() const {
    return {tracks_->displayedField(), ui::isChecked(item(FrmMP3_Check1)),
            program_.settings.CdRomDrive};
}

void FrmMP3::comcopier_Click() {
    const ui::WaitCursor wait;
    ui::setClipboardText(window(), exportText(tracks_->recordset(), exportedColumn()));
}

void FrmMP3::comsave_Click() {
    using namespace std::string_view_literals;
    constexpr ui::FileDialog dialog = {
        u"Enregistrer la liste des morceaux",
        u"Fichiers texte (*.txt)\0*.txt\0Tous les fichiers (*.*)\0*.*\0"sv, u"txt", u""};
    const auto path = ui::chooseFileToSave(window(), dialog);
    if (!path) return;
    const ui::WaitCursor wait;
    saveExport(program_.system.files, program_.system.codePage, *path, tracks_->recordset(),
               exportedColumn());
}

}  // namespace mainwindow
