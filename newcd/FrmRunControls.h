// What the windows of a run have in common: the progress label, the progress bar, the button that
// stops the run, the pointer, and the pauses that keep the window alive.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <string_view>

#include "platform/win32/ui/breather.h"
#include "platform/win32/ui/dialog.h"
#include "platform/win32/ui/taskbarprogress.h"
#include "scan/scanstate.h"

namespace newcd {

class FrmRunControls {
  public:
    // The window and its controls; all of it outlives the object.
    struct Controls {
        platform::win32::Dialog& form;
        HWND progressLabel;
        HWND progressBar;
        HWND stopButton;
    };
    // `showRows` is called to show the rows that have come to the lists since the last time: rows
    // come faster than a window can show them one by one.
    FrmRunControls(const Controls& controls, scan::ScanState& scanState,
                   std::function<void()> showRows);

    // As a run asks of its window.
    void showProgress(std::u16string_view text);
    void showAdvance(int64_t done, int64_t total);
    void yield();
    void waitForEvents();
    void turnCancelIntoOk();
    // Shows the rows that have come since the last time.
    void showRows() { showRows_(); }

  private:
    // A window that has been taken away ends its run.
    void stopWithoutWindow();

    Controls controls_;
    scan::ScanState& scanState_;
    std::function<void()> showRows_;
    platform::win32::Breather breather_;
    platform::win32::TaskbarProgress taskbar_;
};

}  // namespace newcd
