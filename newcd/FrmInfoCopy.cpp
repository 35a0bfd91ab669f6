#include "newcd/FrmInfoCopy.h"

#include <array>
#include <utility>
#include <vector>

#include "config/playback.h"
#include "newcd/FrmExisteFich.h"
#include "newcd/FrmInfoCopy.ids.h"
#include "newcd/listedtracks.h"
#include "newcd/newcdengine.h"
#include "newcd/runlayout.h"
#include "newcd/selection.h"
#include "newcd/summaries.h"
#include "platform/win32/ui/accessible.h"
#include "platform/win32/ui/controls.h"
#include "platform/win32/ui/keys.h"
#include "platform/win32/ui/place.h"

namespace newcd {
namespace {

namespace ui = platform::win32;

// What a long path and a title need in a window of the least width.
constexpr int kProgressLines = 5;

}  // namespace

FrmInfoCopy::FrmInfoCopy(const RunTools& tools, RunState& run, catalogue::Settings& settings,
                         const catalogue::ListLook& look, platform::Programs& programs)
    : Dialog(L"FrmInfoCopy"),
      tools_(tools),
      run_(run),
      settings_(settings),
      chosenLook_(look),
      programs_(programs) {}

void FrmInfoCopy::run(HWND owner) {
    create(owner);
    showBlocking();
    size_->restoreState();
    NewCdEngine(tools_, run_).copy(*this);
    while (!run_.stopRequested())
        controls_->waitForEvents();
    size_->keep();
    destroy();
}

void FrmInfoCopy::onLoad() {
    const HWND list = item(FrmInfoCopy_ListInfocopy);
    ListInfocopy_.emplace(list, [this](size_t row) {
        return std::u16string(listedTrack(run_, List::Copy, row).title);
    });
    ListInfocopy_->showChecks([this](size_t row) { return run_.checked[row]; });
    look_.emplace(window(), chosenLook_, std::array{list});
    ui::setAccessibleName(list, ui::textOf(item(FrmInfoCopy_LabelTitrelist)));
    ui::setAccessibleName(item(FrmInfoCopy_Progression), u"Progression");
    controls_.emplace(
        FrmRunControls::Controls{*this, item(FrmInfoCopy_LabelInfoCopy),
                                 item(FrmInfoCopy_Progression), item(FrmInfoCopy_ComAnnuleCopie)},
        run_.scan, [this] { ListInfocopy_->growTo(run_.checked.size()); });
    size_.emplace(window(), FrmRunSize::Kept{settings_.LayoutValue4, settings_.LayoutValue5,
                                             settings_.LayoutValue6});
    Form_Resize();
    ui::setFocus(item(FrmInfoCopy_ComAnnuleCopie));
}

// Messages.

void FrmInfoCopy::onCommand(int id, int notification) {
    if (notification != BN_CLICKED) return;
    if (id == FrmInfoCopy_CommandCopier) CommandCopier_Click();
    if (id == FrmInfoCopy_ComAnnuleCopie) ComAnnuleCopie_Click();
}

LRESULT FrmInfoCopy::onNotify(const NMHDR& header) {
    if (header.idFrom != FrmInfoCopy_ListInfocopy) return 0;
    if (header.code == LVN_GETDISPINFOW) ListInfocopy_->fill(header);
    if (header.code == LVN_ODFINDITEMW) return ListInfocopy_->find(header);
    if (const auto row = ListInfocopy_->toggledRow(header)) ListInfocopy_ItemCheck(*row);
    return 0;
}

bool FrmInfoCopy::translate(MSG& message) {
    const bool rightPress =
        message.message == WM_RBUTTONDOWN || message.message == WM_RBUTTONDBLCLK;
    if (rightPress && message.hwnd == item(FrmInfoCopy_ListInfocopy)) {
        // Not left to the list view, which would wait for the release itself.
        if (const auto row = ListInfocopy_->rowAt(message.lParam))
            ListInfocopy_RightMouseDown(*row);
        return true;
    }
    if (ui::isContextMenuKey(message) && message.hwnd == item(FrmInfoCopy_ListInfocopy)) {
        ListInfocopy_ContextMenuKey();
        return true;
    }
    return Dialog::translate(message);
}

std::optional<LRESULT> FrmInfoCopy::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SIZE && wParam != SIZE_MINIMIZED) Form_Resize();
    return size_ ? size_->onMessage(message, wParam, lParam) : std::nullopt;
}

void FrmInfoCopy::Form_Resize() {
    if (!controls_ || IsIconic(window())) return;
    const platform::Box client = ui::clientBox(window());
    const CopyLayout layout = layOutCopy(
        {.dpi = dpi(),
         .clientWidth = client.width,
         .clientHeight = client.height,
         .headingHeight =
             ui::textHeight(item(FrmInfoCopy_LabelTitrelist), runListWidth(dpi(), client.width, 1)),
         .progressHeight = ui::linesHeight(item(FrmInfoCopy_LabelInfoCopy), kProgressLines)});
    const std::vector<ui::Placement> placements{
        {item(FrmInfoCopy_LabelTitrelist), layout.LabelTitrelist},
        {item(FrmInfoCopy_ListInfocopy), layout.ListInfocopy},
        {item(FrmInfoCopy_LabelInfoCopy), layout.LabelInfoCopy},
        {item(FrmInfoCopy_Progression), layout.progressBar},
        {item(FrmInfoCopy_CommandCopier), layout.CommandCopier},
        {item(FrmInfoCopy_ComAnnuleCopie), layout.ComAnnuleCopie},
    };
    ui::arrange(window(), placements);
}

// Handlers.

void FrmInfoCopy::CommandCopier_Click() {
    run_.CopyStarted = 1;
}

void FrmInfoCopy::ComAnnuleCopie_Click() {
    run_.scan.ScanAnswer = 1;
}

void FrmInfoCopy::ListInfocopy_ItemCheck(size_t row) {
    checkTrack(run_, row, !run_.checked[row]);
    ListInfocopy_->redrawRow(row);
    showProgress(selectionSummary(copyResult(run_, tools_.decimalSeparator)));
}

void FrmInfoCopy::ListInfocopy_RightMouseDown(size_t row) {
    infoTitre_.show(window(), info(row), [this, row] {
        config::playFile(programs_, settings_, playablePath(run_, settings_, List::Copy, row));
    });
}

void FrmInfoCopy::ListInfocopy_ContextMenuKey() {
    if (const auto row = ListInfocopy_->marked()) infoTitre_.showForKeyboard(window(), info(*row));
}

mainwindow::TrackInfo FrmInfoCopy::info(size_t row) const {
    const Track track = listedTrack(run_, List::Copy, row);
    return mainwindow::trackInfo(track.title, track.path, static_cast<double>(track.size), u"",
                                 settings_.CdRomDrive, tools_.decimalSeparator);
}

// The copy's view.

void FrmInfoCopy::addTrack(std::u16string_view, bool) {
    // The list reads it from the run's tables when it grows.
}

void FrmInfoCopy::enableStart(bool enabled) {
    ui::setEnabled(item(FrmInfoCopy_CommandCopier), enabled);
}

void FrmInfoCopy::enableList(bool enabled) {
    ui::setEnabled(item(FrmInfoCopy_ListInfocopy), enabled);
}

void FrmInfoCopy::waitForEvents() {
    // A run waits for the first time when its user may choose.
    if (!std::exchange(selecting_, true)) beginSelection();
    controls_->waitForEvents();
    giveFocusToList();
}

void FrmInfoCopy::beginSelection() {
    SendMessageW(window(), DM_SETDEFID, FrmInfoCopy_CommandCopier, 0);
    controls_->showRows();
    listAwaitsFocus_ = true;
    giveFocusToList();
}

void FrmInfoCopy::giveFocusToList() {
    // A button that is being pressed has the mouse, and would lose its click with the focus.
    if (!listAwaitsFocus_ || GetActiveWindow() != window() || GetCapture()) return;
    listAwaitsFocus_ = false;
    if (GetFocus() == item(FrmInfoCopy_ComAnnuleCopie))
        ui::setFocus(item(FrmInfoCopy_ListInfocopy));
}

void FrmInfoCopy::turnCancelIntoOk() {
    listAwaitsFocus_ = false;
    controls_->turnCancelIntoOk();
}

void FrmInfoCopy::askNewName(std::u16string_view oldName, std::u16string_view proposedName) {
    FrmExisteFich(run_).ask(window(), oldName, proposedName);
}

}  // namespace newcd
