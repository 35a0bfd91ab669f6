#include "mainwindow/FrmMP3.h"

#include <array>
#include <exception>
#include <utility>

#include "catalogue/settingsfile.h"
#include "config/players.h"
#include "mainwindow/FrmMP3.ids.h"
#include "mainwindow/FrmMP3Size.h"
#include "platform/win32/ui/controls.h"
#include "platform/win32/ui/dpi.h"
#include "platform/win32/ui/keys.h"
#include "platform/win32/ui/place.h"
#include "platform/win32/ui/pointer.h"
#include "platform/win32/ui/report.h"
#include "platform/win32/ui/windowsize.h"

namespace mainwindow {
namespace {

namespace ui = platform::win32;

// What WM_COMMAND brings as its notification when a shortcut sent it.
constexpr int kFromShortcut = 1;

// Posted to itself when its size has become smaller than the least.
constexpr UINT kEnforceLeastSize = WM_APP;

}  // namespace

FrmMP3::FrmMP3(Program program)
    : Dialog(L"FrmMP3"), program_(std::move(program)), aide_(program_.system, program_.AppPath) {}

void FrmMP3::onLoad() {
    accelerators_.reset(LoadAcceleratorsW(GetModuleHandleW(nullptr), L"FrmMP3"));
    tracks_.emplace(item(FrmMP3_DBList2), program_.catalogue);
    formats_.emplace(FrmFormatBoxes::Controls{window(), FrmMP3_CheckFormat0, FrmMP3_CommandExtMoins,
                                              FrmMP3_CommandExtPlus, true},
                     program_.settings, catalogue::shownColumn);
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
    look_.emplace(window(), settings.Look, std::array{item(FrmMP3_List1), item(FrmMP3_DBList2)});
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
}

void FrmMP3::show() {
    ShowWindow(window(), showCommand(program_.settings));
    ui::setFocus(item(FrmMP3_List1));
}

// Messages.

bool FrmMP3::translate(MSG& message) {
    if (TranslateAcceleratorW(window(), accelerators_.get(), &message)) return true;
    if (message.message == WM_KEYDOWN && onKeyDown(message.hwnd, message.wParam)) return true;
    if (ui::isContextMenuKey(message) && onContextMenuKey(message.hwnd)) return true;
    // The second of two quick presses comes under a name of its own.
    if (message.message == WM_RBUTTONDOWN || message.message == WM_RBUTTONDBLCLK) {
        if (onRightMouseDown(message.hwnd, message.lParam)) return true;
    }
    return Dialog::translate(message);
}

bool FrmMP3::onRightMouseDown(HWND control, LPARAM place) {
    if (control == item(FrmMP3_List1)) {
        if (const auto row = ui::listBoxRowAt(control, place)) List1_RightClick(*row);
        return true;
    }
    if (control == item(FrmMP3_DBList2)) {
        // Not left to the list view, which would wait for the release itself.
        if (const auto row = tracks_->list().rowAt(place)) DBList2_RightMouseDown(*row);
        return true;
    }
    return false;
}

// The key does in each list what the right button does on the chosen row.
bool FrmMP3::onContextMenuKey(HWND control) {
    if (control == item(FrmMP3_List1)) {
        menuscan_Click();
        return true;
    }
    if (control == item(FrmMP3_DBList2)) {
        DBList2_ContextMenuKey();
        return true;
    }
    return false;
}

bool FrmMP3::onKeyDown(HWND control, WPARAM key) {
    if (control == item(FrmMP3_LabelReglage)) return splitter_->onKeyDown(key);
    if (key == VK_F6) {
        splitter_->takeFocus();
        return true;
    }
    const bool inCds = control == item(FrmMP3_List1);
    const bool inTracks = control == item(FrmMP3_DBList2);
    const bool inSearch = control == item(FrmMP3_TextRech);
    const bool withControl = GetKeyState(VK_CONTROL) < 0;
    int command = 0;
    if (key == VK_DELETE && inCds) command = FrmMP3_menusupprimer;
    if (key == 'C' && withControl && (inCds || inTracks)) command = FrmMP3_menucopier;
    if (key == VK_RETURN && inSearch) command = FrmMP3_Command1;
    if (key == VK_RETURN && inTracks) tracks_->DBList2_Enter(player(), withControl);
    if (command != 0 && cdRow() != kNoCdRow) onClick(command);
    return command != 0;
}

void FrmMP3::onCommand(int id, int notification) {
    if (id == FrmMP3_List1) {
        if (notification == LBN_SELCHANGE) List1_Click();
    } else if (notification == BN_CLICKED || notification == kFromShortcut) {
        onClick(id);
    }
}

LRESULT FrmMP3::onNotify(const NMHDR& header) {
    if (header.idFrom != FrmMP3_DBList2) return 0;
    // What goes through the whole list shows that it may take a while: a million tracks are many.
    switch (header.code) {
        case LVN_GETDISPINFOW:
            tracks_->list().fill(header);
            break;
        case LVN_ODFINDITEMW: {
            const ui::WaitCursor wait;
            return tracks_->list().find(header);
        }
        case NM_CLICK:
            tracks_->DBList2_Click(player());
            break;
        case NM_DBLCLK: {
            const ui::WaitCursor wait;
            tracks_->DBList2_DblClick(player());
            break;
        }
        default:
            break;
    }
    return 0;
}

std::optional<LRESULT> FrmMP3::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SIZING:
            ui::keepLeastSize(leastSize(window()), wParam, *reinterpret_cast<RECT*>(lParam));
            return TRUE;
        case WM_SIZE:
            if (wParam != SIZE_MINIMIZED) Form_Resize();
            return 0;
        case kEnforceLeastSize:
            ui::enforceLeastSize(window(), leastSize(window()));
            return 0;
        case WM_DPICHANGED:
            onDpiChanged(*reinterpret_cast<const RECT*>(lParam));
            return 0;
        case WM_CTLCOLORSTATIC:
            return onStaticColours(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
        case WM_ENDSESSION:
            if (wParam) Form_Unload();
            return 0;
        default:
            if (message != ui::dialogHelpMessage()) return std::nullopt;
            showColourHelp();
            return TRUE;
    }
}

void FrmMP3::onDpiChanged(const RECT& suggested) {
    arrange_->dpiChanged();
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
    if (ui::isSmaller(window(), leastSize(window()))) {
        // Later: a window manager that is just telling of a new size would not hear of another.
        // Nothing is laid out meanwhile: there is no room for it.
        PostMessageW(window(), kEnforceLeastSize, 0, 0);
        return;
    }
    arrange_->apply();
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
    // An operation that is still on its way finds no catalogue any more.
    program_.scanState.ScanAnswer = 1;
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
