#include "help/FrmAide.h"

#include <commctrl.h>
#include <richedit.h>

#include <algorithm>
#include <array>
#include <string>

#include "help/FrmAide.ids.h"
#include "help/manual.h"
#include "platform/win32/systemerror.h"
#include "platform/win32/ui/accessible.h"
#include "platform/win32/ui/controls.h"
#include "platform/win32/ui/dpi.h"
#include "platform/win32/ui/place.h"
#include "platform/win32/ui/pointer.h"

namespace help {
namespace {

namespace ui = platform::win32;

// Design pixels.
constexpr int kSideMargin = 16;
constexpr int kTopMargin = 12;
constexpr int kAroundButton = 8;

// From the system's own folder: a library of that name beside the program is none of ours.
HMODULE loadRichEdit() {
    std::array<wchar_t, MAX_PATH> folder{};
    GetSystemDirectoryW(folder.data(), MAX_PATH);
    const HMODULE library = LoadLibraryW((std::wstring(folder.data()) + L"\\Msftedit.dll").c_str());
    if (!library) throw ui::systemError(GetLastError());
    return library;
}

// Gives the text box the next bytes of the text that `cookie` points to.
DWORD CALLBACK readRtf(DWORD_PTR cookie, LPBYTE bytes, LONG wanted, LONG* given) noexcept {
    auto& rest = *reinterpret_cast<std::string_view*>(cookie);
    const size_t count = std::min(rest.size(), static_cast<size_t>(wanted));
    rest.copy(reinterpret_cast<char*>(bytes), count);
    rest.remove_prefix(count);
    *given = static_cast<LONG>(count);
    return 0;
}

// The text box would keep Tab, Enter and Escape for itself; it needs none of them to be read.
LRESULT CALLBACK leaveKeysToDialog(HWND box, UINT message, WPARAM wParam, LPARAM lParam,
                                   UINT_PTR id, DWORD_PTR) noexcept {
    if (message == WM_GETDLGCODE) return DLGC_WANTARROWS;
    if (message == WM_NCDESTROY) RemoveWindowSubclass(box, leaveKeysToDialog, id);
    return DefSubclassProc(box, message, wParam, lParam);
}

}  // namespace

FrmAide::FrmAide(platform::System& system, std::u16string_view AppPath)
    : Dialog(L"FrmAide"), system_(system), AppPath_(AppPath) {}

// The window goes before the library that its text box lives in.
FrmAide::~FrmAide() {
    destroy();
}

void FrmAide::open(HWND main) {
    if (window()) {
        bringForward();
        return;
    }
    const auto rtf = loadManual(system_.files, system_.messages, AppPath_);
    if (!rtf) return;
    const ui::WaitCursor wait;
    if (!richEdit_) richEdit_.reset(loadRichEdit());
    create(nullptr);
    ui::placeOver(window(), main);
    showText(*rtf);
    ShowWindow(window(), SW_SHOW);
    ui::setFocus(item(FrmAide_RichTextBox1));
}

void FrmAide::onLoad() {
    SetWindowSubclass(item(FrmAide_RichTextBox1), leaveKeysToDialog, 0, 0);
    ui::setAccessibleName(item(FrmAide_RichTextBox1), u"Manuel de Brivantole Audio");
    Form_Resize();
}

void FrmAide::onCommand(int id, int notification) {
    if (id == FrmAide_AideQuit && notification == BN_CLICKED) AideQuit_Click();
}

std::optional<LRESULT> FrmAide::onMessage(UINT message, WPARAM wParam, LPARAM) {
    if (message != WM_SIZE) return std::nullopt;
    if (wParam != SIZE_MINIMIZED) Form_Resize();
    return 0;
}

void FrmAide::AideQuit_Click() {
    finish();
}

// The text box fills the window; inside it the text leaves a strip free for the button.
void FrmAide::Form_Resize() {
    const auto px = [this](int designPixels) { return ui::scaled(designPixels, dpi()); };
    const HWND box = item(FrmAide_RichTextBox1);
    const platform::Box client = ui::clientBox(window());
    ui::moveWindow(box, client);

    platform::Box button = ui::controlBox(item(FrmAide_AideQuit));
    const platform::Box inner = ui::clientBox(box);
    button.left = inner.width - button.width - px(kSideMargin);
    button.top = client.height - button.height - px(kAroundButton);
    ui::moveWindow(item(FrmAide_AideQuit), button);

    RECT text = {px(kSideMargin), px(kTopMargin), inner.width - px(kSideMargin),
                 button.top - px(kAroundButton)};
    SendMessageW(box, EM_SETRECT, 0, reinterpret_cast<LPARAM>(&text));
    InvalidateRect(box, nullptr, TRUE);
    InvalidateRect(item(FrmAide_AideQuit), nullptr, TRUE);
}

void FrmAide::showText(std::string_view rtf) {
    EDITSTREAM stream{};
    stream.dwCookie = reinterpret_cast<DWORD_PTR>(&rtf);
    stream.pfnCallback = readRtf;
    SendMessageW(item(FrmAide_RichTextBox1), EM_STREAMIN, SF_RTF,
                 reinterpret_cast<LPARAM>(&stream));
}

void FrmAide::bringForward() {
    if (IsIconic(window())) ShowWindow(window(), SW_RESTORE);
    // Window managers that keep the activation to themselves raise it at least.
    BringWindowToTop(window());
    SetForegroundWindow(window());
}

}  // namespace help
