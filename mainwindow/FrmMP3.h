// The main window: the CD list, the track list with its filters, and the program's menus.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/settings.h"
#include "help/FrmAide.h"
#include "jet/database.h"
#include "mainwindow/FrmFormatBoxes.h"
#include "mainwindow/FrmInfoTitre.h"
#include "mainwindow/FrmListLook.h"
#include "mainwindow/FrmMP3Arrange.h"
#include "mainwindow/FrmMP3Splitter.h"
#include "mainwindow/FrmMP3Tracks.h"
#include "mainwindow/exporting.h"
#include "mainwindow/look.h"
#include "platform/system.h"
#include "platform/win32/ui/dialog.h"
#include "platform/win32/ui/editfilter.h"
#include "platform/win32/ui/lookdialogs.h"
#include "scan/FrmNouveauCD.h"
#include "scan/scanstate.h"

namespace mainwindow {

class FrmMP3 : public platform::win32::Dialog {
  public:
    // What the window shows and changes; all of it must outlive the window.
    struct Program {
        platform::System& system;
        catalogue::Settings& settings;
        jet::Database& catalogue;
        scan::ScanState& scanState;
        std::u16string_view AppPath;  // with a trailing backslash
        // Makes the CD list anew from the catalogue, by clearList1 and fillList1.
        std::function<void()> RefillCdList;
    };

    explicit FrmMP3(Program program);

    // The CD list; no row is chosen afterwards.
    void clearList1();
    void fillList1(const std::vector<std::u16string>& rows);
    // Shows the window in the state that the settings say.
    void show();

    bool translate(MSG& message) override;

  protected:
    void onLoad() override;
    void onCommand(int id, int notification) override;
    LRESULT onNotify(const NMHDR& header) override;
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void onClose() override;
    void onHelp() override { menuaide_Click(); }
    // Nothing to escape from.
    void onEscape() override {}

  private:
    // Handlers, named after control and event.
    void List1_Click();
    void List1_RightClick(int row);
    void DBList2_RightMouseDown(size_t row);
    void DBList2_ContextMenuKey();
    void ComNouveau_Click();
    void menuscan_Click();
    void menusupprimer_Click();
    void menuRechercheCD_Click();
    void menuCopieCD_Click();
    void menuCDROM_Click();
    void menuChemin_Click();
    void MenExt_Click();
    void raccourciRecherche_Click();
    void comcopier_Click();
    void comsave_Click();
    void menufontes_Click();
    void menucouleurfontes_Click();
    void menucouleurfond_Click();
    void menuaide_Click();
    void menuapropos_Click();
    void Form_Resize();
    void Form_Unload();

    void onClick(int id);
    bool onKeyDown(HWND control, WPARAM key);
    bool onContextMenuKey(HWND control);
    // `place`: as the message has it.
    bool onRightMouseDown(HWND control, LPARAM place);
    void onDpiChanged(const RECT& suggested);
    std::optional<LRESULT> onStaticColours(HDC dc, HWND control) const;

    // Lets the user change `colour`, one of the lists' two.
    void chooseListColour(const ColourDialog& dialog, int32_t catalogue::ListLook::*colour);
    void showColourHelp();

    void applySettings();
    void collectSettings();
    void RefreshTrackList();
    void refreshIfAutomatic();
    void showCount();
    void showPlayer();
    void showCdRomDrive();
    // Shows no track, and disables what acts on the chosen CD or its tracks.
    void forgetCd();
    void enableCdControls(bool enabled);
    void enableCommand(int command, bool enabled);
    // The chosen row of the CD list, -1 for none, and its text.
    int cdRow() const;
    std::u16string cdName() const;
    scan::FrmNouveauCD::Program scanProgram() const;
    TrackPlayer player() const;
    ExportedColumn exportedColumn() const;
    void chooseCd(std::u16string_view name);

    Program program_;
    platform::win32::Accelerators accelerators_;
    // Made once the window exists.
    std::optional<FrmMP3Arrange> arrange_;
    std::optional<FrmMP3Splitter> splitter_;
    std::optional<FrmMP3Tracks> tracks_;
    std::optional<FrmFormatBoxes> formats_;
    std::optional<platform::win32::EditFilter> searchFilter_;
    FrmInfoTitre infoTitre_;
    std::optional<FrmListLook> look_;
    catalogue::ListLook newCdLook_ = designedLook();
    help::FrmAide aide_;
    platform::win32::CustomColours customColours_;
    bool unloaded_ = false;
};

}  // namespace mainwindow
