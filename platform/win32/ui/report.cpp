#include "platform/win32/ui/report.h"

#include <windows.h>

#include "platform/report.h"
#include "platform/win32/wide.h"

namespace platform::win32 {

void showReport(const std::exception& error) {
    MessageBoxW(GetActiveWindow(), toWide(reportText(error)).c_str(), toWide(kReportTitle).c_str(),
                MB_OK | MB_ICONERROR);
}

void reportCurrentException() noexcept {
    try {
        throw;
    } catch (const std::exception& error) {
        try {
            showReport(error);
        } catch (...) {
            // No memory for the report itself: a beep is all that is left.
            MessageBeep(MB_ICONERROR);
        }
    } catch (...) {
        MessageBeep(MB_ICONERROR);
    }
}

}  // namespace platform::win32
