#include "mainwindow/FrmMP3.h"

#include <array>

#include "base/error.h"
#include "catalogue/cdlist.h"
#include "catalogue/cdromdrive.h"
#include "catalogue/settingsfile.h"
#include "config/FrmExtension.h"
#include "config/players.h"
#include "mainwindow/FrmMP3.ids.h"
#include "mainwindow/FrmMP3Size.h"
#include "platform/win32/ui/controls.h"
#include "platform/win32/ui/dpi.h"
#include "platform/win32/ui/place.h"
#include "platform/win32/ui/report.h"
#include "platform/win32/wide.h"
#include "scan/FrmNouveauCD.h"

namespace mainwindow {
namespace {

namespace ui = platform::win32;

// What WM_COMMAND brings as its notification when a shortcut sent it.
constexpr int kFromShortcut = 1;

// Posted to itself when its size has become smaller than the least.
constexpr UINT kEnforceLeastSize = WM_APP;

}  // namespace

FrmMP3::FrmMP3(const Program& program) : Dialog(L"FrmMP3"), program_(program) {}

void FrmMP3::onLoad() {
    accelerators_.reset(LoadAcceleratorsW(GetModuleHandleW(nullptr), L"FrmMP3"));
    tracks_.emplace(item(FrmMP3_DBList2), program_.catalogue);
    formats_.emplace(window(), program_.settings);
    arrange_.emplace(window());
    splitter_.emplace(item(FrmMP3_LabelReglage), *arrange_);
    // The text comes to stand between double quotation marks in the query.
    searchFilter_.emplace(
        item(FrmMP3_TextRech),
        [](char16_t character) { return character == u'"' ? u'\'' : character; },
        ui::Paste::Filtered);
    forgetCd();
    applySettings();
}

void FrmMP3::applySettings() {
    const catalogue::Settings& settings = program_.settings;
    showPlayer();
    look_.apply(settings.Look, item(FrmMP3_List1), tracks_->list());
    ui::setChecked(item(FrmMP3_Option1), settings.Option1);
    ui::setChecked(item(FrmMP3_Option2), settings.Option2);
    ui::setChecked(item(FrmMP3_Option3), settings.Option3);
    ui::setCheckValue(item(FrmMP3_Check1), settings.Check1);
    ui::setCheckValue(item(FrmMP3_Check3), settings.Check3);
    ui::setCheckValue(item(FrmMP3_CheckAutoRefresh), settings.CheckAutoRefresh);
    formats_->show();
    showCdRomDrive();
    applySize(window(), settings);
    arrange_->setListWidths(ui::scaled(settings.List1Width, dpi()),
                            ui::scaled(settings.DBList2Width, dpi()));
    tracks_->list().stretchColumn();
}

void FrmMP3::show() {
    ShowWindow(window(), showCommand(program_.settings));
    ui::setFocus(item(FrmMP3_List1));
}

void FrmMP3::fillCdList() {
    ui::fillListBox(item(FrmMP3_List1), catalogue::CdListRows(program_.catalogue));
}

// Messages.

bool FrmMP3::translate(MSG& message) {
    if (TranslateAcceleratorW(window(), accelerators_.get(), &message)) return true;
    if (message.message == WM_KEYDOWN && onKeyDown(message.hwnd, message.wParam)) return true;
    if (message.message == WM_RBUTTONDOWN && message.hwnd == item(FrmMP3_List1)) {
        // The row under the pointer: its number, and above it whether the pointer is past the rows.
        const LRESULT place = SendMessageW(message.hwnd, LB_ITEMFROMPOINT, 0, message.lParam);
        if (HIWORD(place) == 0) List1_RightClick(LOWORD(place));
        return true;
    }
    return Dialog::translate(message);
}

bool FrmMP3::onKeyDown(HWND control, WPARAM key) {
    int command = 0;
    if (key == VK_DELETE && control == item(FrmMP3_List1)) command = FrmMP3_menusupprimer;
    if (key == VK_RETURN && control == item(FrmMP3_TextRech)) command = FrmMP3_Command1;
    if (command == 0) return false;
    // By message, so that an error ends at the window procedure's border.
    SendMessageW(window(), WM_COMMAND, static_cast<WPARAM>(command), 0);
    return true;
}

void FrmMP3::onCommand(int id, int notification) {
    if (id == FrmMP3_List1) {
        if (notification == LBN_SELCHANGE) List1_Click();
    } else if (notification == BN_CLICKED || notification == kFromShortcut) {
        onClick(id);
    }
}

void FrmMP3::onClick(int id) {
    if (id >= FrmMP3_CheckFormat0 && id <= FrmMP3_CheckFormat9) {
        formats_->CheckFormat_Click(id - FrmMP3_CheckFormat0);
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
        case FrmMP3_menuquitter:
            onClose();
            break;
        case FrmMP3_MenExt:
            MenExt_Click();
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

LRESULT FrmMP3::onNotify(const NMHDR& header) {
    if (header.idFrom == FrmMP3_DBList2 && header.code == LVN_GETDISPINFOW)
        tracks_->list().fill(header);
    return 0;
}

std::optional<LRESULT> FrmMP3::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SIZING:
            keepLeastSize(window(), wParam, *reinterpret_cast<RECT*>(lParam));
            return TRUE;
        case WM_SIZE:
            if (wParam != SIZE_MINIMIZED) Form_Resize();
            return 0;
        case kEnforceLeastSize:
            enforceLeastSize(window());
            return 0;
        case WM_DPICHANGED:
            onDpiChanged(*reinterpret_cast<const RECT*>(lParam));
            return 0;
        case WM_CTLCOLORLISTBOX:
            return reinterpret_cast<LRESULT>(look_.listBoxColours(reinterpret_cast<HDC>(wParam)));
        case WM_CTLCOLORSTATIC:
            return onStaticColours(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
        case WM_ENDSESSION:
            if (wParam) Form_Unload();
            return 0;
        default:
            return std::nullopt;
    }
}

void FrmMP3::onDpiChanged(const RECT& suggested) {
    arrange_->dpiChanged();
    look_.apply(program_.settings.Look, item(FrmMP3_List1), tracks_->list());
    ui::moveWindow(window(), ui::boxOf(suggested));
    Form_Resize();
}

std::optional<LRESULT> FrmMP3::onStaticColours(HDC dc, HWND control) const {
    if (control != item(FrmMP3_LabelLecteur)) return std::nullopt;
    SetTextColor(dc, static_cast<COLORREF>(config::ShowPlayerState(program_.settings)));
    SetBkMode(dc, TRANSPARENT);
    return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
}

void FrmMP3::Form_Resize() {
    if (!arrange_ || IsIconic(window())) return;
    // Later: a window manager that is just telling of a new size would not hear of another.
    if (isTooSmall(window())) PostMessageW(window(), kEnforceLeastSize, 0, 0);
    arrange_->apply();
    tracks_->list().stretchColumn();
}

// The CD list and what follows from it.

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

void FrmMP3::enableCdControls(bool enabled) {
    constexpr std::array controls = {
        FrmMP3_Command1, FrmMP3_comcopier, FrmMP3_comsave, FrmMP3_Check1, FrmMP3_Check3,
        FrmMP3_Option1,  FrmMP3_Option2,   FrmMP3_Option3, FrmMP3_Label3, FrmMP3_TextRech};
    for (const int control : controls)
        ui::setEnabled(item(control), enabled);
    enableCommand(FrmMP3_menusupprimer, enabled);
    enableCommand(FrmMP3_menuactualiser, enabled);
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
    if (!catalogue::DeleteCd(program_.catalogue, program_.system.messages,
                             all ? std::nullopt : std::optional(cdName()))) {
        return;
    }
    forgetCd();
    fillCdList();
}

void FrmMP3::ComNouveau_Click() {
    if (!scan::FrmNouveauCD(scanProgram()).addCd(window())) return;
    fillCdList();
    chooseCd(program_.settings.ScanCdName);
}

void FrmMP3::menuscan_Click() {
    if (cdRow() <= kAllCdsRow) return;
    const std::u16string name = cdName();
    if (!scan::FrmNouveauCD(scanProgram()).rescan(window(), name)) return;
    // A CD without music any more leaves the list.
    fillCdList();
    chooseCd(name);
}

scan::FrmNouveauCD::Program FrmMP3::scanProgram() const {
    return {program_.system, program_.settings, program_.catalogue, program_.scanState,
            program_.AppPath};
}

void FrmMP3::MenExt_Click() {
    config::FrmExtension dialog(program_.settings, program_.system.messages, [this] {
        formats_->listChanged();
        RefreshTrackList();
    });
    dialog.create(window());
    dialog.runModal();
}

void FrmMP3::raccourciRecherche_Click() {
    const HWND box = item(FrmMP3_TextRech);
    if (!IsWindowEnabled(box)) return;
    ui::setFocus(box);
    SendMessageW(box, EM_SETSEL, 0, -1);
}

// The end.

void FrmMP3::onClose() {
    Form_Unload();
    finish();
    PostQuitMessage(0);
}

void FrmMP3::collectSettings() {
    catalogue::Settings& settings = program_.settings;
    storeSizeAndState(window(), settings);
    settings.List1Width = ui::unscaled(arrange_->list1Width(), dpi());
    settings.DBList2Width = ui::unscaled(arrange_->dbList2Width(), dpi());
    settings.Option1 = ui::isChecked(item(FrmMP3_Option1));
    settings.Option2 = ui::isChecked(item(FrmMP3_Option2));
    settings.Option3 = ui::isChecked(item(FrmMP3_Option3));
    settings.Check1 = ui::checkValue(item(FrmMP3_Check1));
    settings.Check3 = ui::checkValue(item(FrmMP3_Check3));
    settings.CheckAutoRefresh = ui::checkValue(item(FrmMP3_CheckAutoRefresh));
}

// Unloading is never refused: what cannot be saved is reported, and the program ends all the same.
void FrmMP3::Form_Unload() {
    if (unloaded_) return;
    unloaded_ = true;
    try {
        collectSettings();
        catalogue::SaveSettings(program_.system.files, program_.AppPath, program_.system.codePage,
                                program_.settings);
    } catch (const std::exception& error) {
        ui::showReport(error);
    }
    tracks_->close();
    program_.catalogue.Close();
}

}  // namespace mainwindow
