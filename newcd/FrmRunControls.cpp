#include "newcd/FrmRunControls.h"

#include <commctrl.h>

#include <utility>

#include "platform/win32/ui/controls.h"

namespace newcd {
namespace {

namespace ui = platform::win32;

// The bar counts in thousandths, for its numbers are too small for the bytes of a medium.
constexpr int kWholeBar = 1000;

}  // namespace

FrmRunControls::FrmRunControls(const Controls& controls, scan::ScanState& scanState,
                               std::function<void()> showRows)
    : controls_(controls),
      scanState_(scanState),
      showRows_(std::move(showRows)),
      taskbar_(controls.form.window()) {
    controls_.form.setBusy(ui::Busy::InBackground);
    SendMessageW(controls_.progressBar, PBM_SETRANGE32, 0, kWholeBar);
}

void FrmRunControls::showProgress(std::u16string_view text) {
    ui::setText(controls_.progressLabel, text);
    UpdateWindow(controls_.progressLabel);
}

void FrmRunControls::showAdvance(int64_t done, int64_t total) {
    const int64_t position = total > 0 ? done * kWholeBar / total : 0;
    SendMessageW(controls_.progressBar, PBM_SETPOS, static_cast<WPARAM>(position), 0);
    ui::setVisible(controls_.progressBar, total > 0);
    taskbar_.show(done, total);
}

void FrmRunControls::yield() {
    controls_.form.setBusy(ui::Busy::InBackground);
    if (!breather_.breathe()) return;
    showRows_();
    stopWithoutWindow();
}

void FrmRunControls::waitForEvents() {
    showRows_();
    controls_.form.setBusy(ui::Busy::No);
    // Not by WaitMessage, which sleeps on when another program has pressed a button by a message.
    MsgWaitForMultipleObjectsEx(0, nullptr, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    ui::dispatchWaiting();
    stopWithoutWindow();
}

void FrmRunControls::stopWithoutWindow() {
    if (!IsWindow(controls_.form.window())) scanState_.ScanAnswer = 1;
}

void FrmRunControls::turnCancelIntoOk() {
    ui::setText(controls_.stopButton, u"OK");
    controls_.form.setBusy(ui::Busy::No);
    SendMessageW(controls_.form.window(), DM_SETDEFID,
                 static_cast<WPARAM>(GetDlgCtrlID(controls_.stopButton)), 0);
    ui::setFocus(controls_.stopButton);
}

}  // namespace newcd
