// The tracks of a medium: which of them are to be copied, and the copy.
#pragma once

#include <optional>

#include "mainwindow/FrmInfoTitre.h"
#include "mainwindow/FrmListLook.h"
#include "newcd/FrmRunControls.h"
#include "newcd/FrmRunSize.h"
#include "newcd/runstate.h"
#include "newcd/runtools.h"
#include "newcd/runwindows.h"
#include "platform/programs.h"
#include "platform/win32/ui/dialog.h"
#include "platform/win32/ui/virtuallist.h"

namespace newcd {

class FrmInfoCopy : public platform::win32::Dialog, private CopyWindow {
  public:
    // All of them must outlive the window, which keeps its size in `settings`.
    FrmInfoCopy(const RunTools& tools, RunState& run, catalogue::Settings& settings,
                const catalogue::ListLook& look, platform::Programs& programs);

    // Copies from the medium in settings.CdRomDrive what the user chooses, and returns when he has
    // closed the window.
    void run(HWND owner);

    bool translate(MSG& message) override;

  protected:
    void onLoad() override;
    void onCommand(int id, int notification) override;
    LRESULT onNotify(const NMHDR& header) override;
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void onClose() override { ComAnnuleCopie_Click(); }

  private:
    void CommandCopier_Click();
    void ComAnnuleCopie_Click();
    void ListInfocopy_ItemCheck(size_t row);
    void ListInfocopy_RightMouseDown(size_t row);
    void ListInfocopy_ContextMenuKey();
    mainwindow::TrackInfo info(size_t row) const;
    void Form_Resize();
    // The tracks are all listed: the user's turn.
    void beginSelection();
    // Lets the list have the focus that the stop button still has; waits for the user to come back
    // when he works in another program.
    void giveFocusToList();

    // What the copy sees of the window.
    void showProgress(std::u16string_view text) override { controls_->showProgress(text); }
    void showAdvance(int64_t done, int64_t total) override { controls_->showAdvance(done, total); }
    void yield() override { controls_->yield(); }
    void turnCancelIntoOk() override;
    void addTrack(std::u16string_view title, bool checked) override;
    void enableStart(bool enabled) override;
    void enableList(bool enabled) override;
    void waitForEvents() override;
    void askNewName(std::u16string_view oldName, std::u16string_view proposedName) override;

    const RunTools& tools_;
    RunState& run_;
    catalogue::Settings& settings_;
    const catalogue::ListLook& chosenLook_;
    platform::Programs& programs_;
    bool selecting_ = false;
    bool listAwaitsFocus_ = false;
    std::optional<FrmRunControls> controls_;
    std::optional<FrmRunSize> size_;
    std::optional<platform::win32::VirtualList> ListInfocopy_;
    std::optional<mainwindow::FrmListLook> look_;
    mainwindow::FrmInfoTitre infoTitre_;
};

}  // namespace newcd
