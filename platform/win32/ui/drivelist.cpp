#include "platform/win32/ui/drivelist.h"

#include "base/text.h"
#include "platform/win32/drives.h"
#include "platform/win32/ui/controls.h"
#include "platform/win32/wide.h"

namespace platform::win32 {
namespace {

std::u16string rowText(const Drive& drive) {
    std::u16string text = {drive.letter, u':'};
    // A network drive that does not answer would hold the window up.
    if (drive.type != DriveType::Remote) {
        const std::u16string label = Win32Drives().volumeLabel(drive.letter);
        if (!label.empty()) text += u" [" + label + u"]";
    }
    return text;
}

}  // namespace

void DriveList::fill(std::u16string_view drive) {
    const char16_t wanted = drive.empty() ? u'\0' : base::upper(drive.front());
    int choice = 0;
    SendMessageW(combo_, CB_RESETCONTENT, 0, 0);
    for (const Drive& each : drives_.list()) {
        const LRESULT row = SendMessageW(combo_, CB_ADDSTRING, 0,
                                         reinterpret_cast<LPARAM>(toWide(rowText(each)).c_str()));
        if (each.letter == wanted) choice = static_cast<int>(row);
    }
    SendMessageW(combo_, CB_SETCURSEL, static_cast<WPARAM>(choice), 0);
}

void DriveList::refill() {
    fill(drive());
}

std::u16string DriveList::drive() const {
    return textOf(combo_);
}

}  // namespace platform::win32
