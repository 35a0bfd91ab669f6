// The results of a search: the tracks of the medium that the catalogue knows, by both methods.
#pragma once

#include <optional>

#include "mainwindow/FrmInfoTitre.h"
#include "mainwindow/FrmListLook.h"
#include "newcd/FrmRunControls.h"
#include "newcd/FrmRunSize.h"
#include "newcd/listedtracks.h"
#include "newcd/runstate.h"
#include "newcd/runtools.h"
#include "newcd/runwindows.h"
#include "platform/programs.h"
#include "platform/win32/ui/dialog.h"
#include "platform/win32/ui/virtuallist.h"

namespace newcd {

class FrmInfoRech : public platform::win32::Dialog, private SearchWindow {
  public:
    // All of them must outlive the window, which keeps its size in `settings`.
    FrmInfoRech(const RunTools& tools, RunState& run, catalogue::Settings& settings,
                const catalogue::ListLook& look, platform::Programs& programs);

    // Searches the medium in settings.CdRomDrive and returns when the user has closed the window.
    void run(HWND owner);

  protected:
    void onLoad() override;
    void onCommand(int id, int notification) override;
    LRESULT onNotify(const NMHDR& header) override;
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool translate(MSG& message) override;
    void onClose() override { CommandOkannul_Click(); }

  private:
    void CommandOkannul_Click();
    void List_Click(List list);
    void List_DblClick(List list);
    void List_RightMouseDown(List list, size_t row);
    void List_ContextMenuKey(List list);
    void List_CtrlEnter(List list);
    void Form_Resize();

    // What the search sees of the window.
    void addKnown(Method method, std::u16string_view title) override;
    void showProgress(std::u16string_view text) override { controls_->showProgress(text); }
    void showAdvance(int64_t done, int64_t total) override { controls_->showAdvance(done, total); }
    void yield() override { controls_->yield(); }
    void turnCancelIntoOk() override { controls_->turnCancelIntoOk(); }

    mainwindow::TrackInfo info(List list, size_t row) const;
    platform::win32::VirtualList& view(List list);
    // The list that a control is, if it is one of the two.
    std::optional<List> listOf(HWND control) const;
    void showRows();

    const RunTools& tools_;
    RunState& run_;
    catalogue::Settings& settings_;
    const catalogue::ListLook& chosenLook_;
    platform::Programs& programs_;
    std::optional<FrmRunControls> controls_;
    std::optional<FrmRunSize> size_;
    std::optional<platform::win32::VirtualList> List1_;
    std::optional<platform::win32::VirtualList> List2_;
    std::optional<mainwindow::FrmListLook> look_;
    mainwindow::FrmInfoTitre infoTitre_;
};

}  // namespace newcd
