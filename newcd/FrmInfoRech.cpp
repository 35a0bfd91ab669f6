#include "newcd/FrmInfoRech.h"

#include <algorithm>
#include <array>
#include <vector>

#include "config/playback.h"
#include "newcd/FrmInfoRech.ids.h"
#include "newcd/newcdengine.h"
#include "newcd/runlayout.h"
#include "platform/win32/ui/accessible.h"
#include "platform/win32/ui/controls.h"
#include "platform/win32/ui/keys.h"
#include "platform/win32/ui/place.h"

namespace newcd {
namespace {

namespace ui = platform::win32;

// What the summary needs in a window of the least width.
constexpr int kProgressLines = 5;

}  // namespace

FrmInfoRech::FrmInfoRech(const RunTools& tools, RunState& run, catalogue::Settings& settings,
                         const catalogue::ListLook& look, platform::Programs& programs)
    : Dialog(L"FrmInfoRech"),
      tools_(tools),
      run_(run),
      settings_(settings),
      chosenLook_(look),
      programs_(programs) {}

void FrmInfoRech::run(HWND owner) {
    create(owner);
    showBlocking();
    size_->restoreState();
    NewCdEngine(tools_, run_).search(*this);
    while (!run_.stopRequested())
        controls_->waitForEvents();
    size_->keep();
    destroy();
}

void FrmInfoRech::onLoad() {
    const auto text = [this](List list) {
        return
            [this, list](size_t row) { return std::u16string(listedTrack(run_, list, row).title); };
    };
    List1_.emplace(item(FrmInfoRech_List1), text(List::KnownTitles));
    List2_.emplace(item(FrmInfoRech_List2), text(List::KnownTitlesAndSizes));
    ui::setAccessibleName(item(FrmInfoRech_List1), ui::textOf(item(FrmInfoRech_Label1_0)));
    ui::setAccessibleName(item(FrmInfoRech_List2), ui::textOf(item(FrmInfoRech_Label1_1)));
    ui::setAccessibleName(item(FrmInfoRech_Progression), u"Progression");
    look_.emplace(window(), chosenLook_,
                  std::array{item(FrmInfoRech_List1), item(FrmInfoRech_List2)});
    controls_.emplace(
        FrmRunControls::Controls{*this, item(FrmInfoRech_Label2), item(FrmInfoRech_Progression),
                                 item(FrmInfoRech_CommandOkannul)},
        run_.scan, [this] { showRows(); });
    size_.emplace(window(), FrmRunSize::Kept{settings_.LayoutValue1, settings_.LayoutValue2,
                                             settings_.LayoutValue3});
    Form_Resize();
    ui::setFocus(item(FrmInfoRech_CommandOkannul));
}

ui::VirtualList& FrmInfoRech::view(List list) {
    return list == List::KnownTitles ? *List1_ : *List2_;
}

std::optional<List> FrmInfoRech::listOf(HWND control) const {
    if (control == item(FrmInfoRech_List1)) return List::KnownTitles;
    if (control == item(FrmInfoRech_List2)) return List::KnownTitlesAndSizes;
    return std::nullopt;
}

// Messages.

void FrmInfoRech::onCommand(int id, int notification) {
    if (id == FrmInfoRech_CommandOkannul && notification == BN_CLICKED) CommandOkannul_Click();
}

LRESULT FrmInfoRech::onNotify(const NMHDR& header) {
    const std::optional<List> list = listOf(header.hwndFrom);
    if (!list) return 0;
    switch (header.code) {
        case LVN_GETDISPINFOW:
            view(*list).fill(header);
            break;
        case LVN_ODFINDITEMW:
            return view(*list).find(header);
        case NM_CLICK:
            List_Click(*list);
            break;
        case NM_DBLCLK:
            List_DblClick(*list);
            break;
        case LVN_KEYDOWN:
            if (reinterpret_cast<const NMLVKEYDOWN&>(header).wVKey == VK_SPACE) List_Click(*list);
            break;
        default:
            break;
    }
    return 0;
}

bool FrmInfoRech::translate(MSG& message) {
    if (message.message == WM_RBUTTONDOWN || message.message == WM_RBUTTONDBLCLK) {
        if (const std::optional<List> list = listOf(message.hwnd)) {
            // Not left to the list view, which would wait for the release itself.
            if (const auto row = view(*list).rowAt(message.lParam))
                List_RightMouseDown(*list, *row);
            return true;
        }
    }
    if (ui::isContextMenuKey(message)) {
        if (const std::optional<List> list = listOf(message.hwnd)) {
            List_ContextMenuKey(*list);
            return true;
        }
    }
    if (message.message == WM_KEYDOWN && message.wParam == VK_RETURN &&
        GetKeyState(VK_CONTROL) < 0) {
        if (const std::optional<List> list = listOf(message.hwnd)) {
            List_CtrlEnter(*list);
            return true;
        }
    }
    return Dialog::translate(message);
}

std::optional<LRESULT> FrmInfoRech::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SIZE && wParam != SIZE_MINIMIZED) Form_Resize();
    return size_ ? size_->onMessage(message, wParam, lParam) : std::nullopt;
}

void FrmInfoRech::Form_Resize() {
    if (!controls_ || IsIconic(window())) return;
    const int width = ui::clientBox(window()).width;
    const int listWidth = runListWidth(dpi(), width, 2);
    const SearchLayout layout = layOutSearch(
        {.dpi = dpi(),
         .clientWidth = width,
         .clientHeight = ui::clientBox(window()).height,
         .headingHeight = std::max(ui::textHeight(item(FrmInfoRech_Label1_0), listWidth),
                                   ui::textHeight(item(FrmInfoRech_Label1_1), listWidth)),
         .progressHeight = ui::linesHeight(item(FrmInfoRech_Label2), kProgressLines)});
    const std::vector<ui::Placement> placements{
        {item(FrmInfoRech_Label1_0), layout.Label1[0]},
        {item(FrmInfoRech_Label1_1), layout.Label1[1]},
        {item(FrmInfoRech_List1), layout.List1},
        {item(FrmInfoRech_List2), layout.List2},
        {item(FrmInfoRech_Label2), layout.Label2},
        {item(FrmInfoRech_Progression), layout.progressBar},
        {item(FrmInfoRech_CommandOkannul), layout.CommandOkannul},
    };
    ui::arrange(window(), placements);
}

// Handlers.

void FrmInfoRech::CommandOkannul_Click() {
    run_.scan.ScanAnswer = 1;
}

void FrmInfoRech::List_Click(List list) {
    const std::optional<size_t> row = view(list).selected();
    if (!row) return;
    config::playFile(programs_, settings_, playablePath(run_, settings_, list, *row));
}

void FrmInfoRech::List_DblClick(List list) {
    if (!view(list).selected()) return;
    playKnownTracks(programs_, tools_.files, tools_.codePage, tools_.AppPath, settings_, run_,
                    list);
}

void FrmInfoRech::List_RightMouseDown(List list, size_t row) {
    infoTitre_.show(window(), info(list, row));
}

void FrmInfoRech::List_ContextMenuKey(List list) {
    if (const auto row = view(list).marked())
        infoTitre_.showForKeyboard(window(), info(list, *row));
}

void FrmInfoRech::List_CtrlEnter(List list) {
    view(list).chooseMarked();
    List_DblClick(list);
}

mainwindow::TrackInfo FrmInfoRech::info(List list, size_t row) const {
    const Track track = listedTrack(run_, list, row);
    return mainwindow::trackInfo(track.title, track.path, static_cast<double>(track.size), u"",
                                 settings_.CdRomDrive, tools_.decimalSeparator);
}

// The search's view.

void FrmInfoRech::addKnown(Method, std::u16string_view) {
    // showRows() will read it from the run's tables.
}

void FrmInfoRech::showRows() {
    List1_->growTo(static_cast<size_t>(run_.knownCounts[0]));
    List2_->growTo(static_cast<size_t>(run_.knownCounts[1]));
}

}  // namespace newcd
