#include "app/program.h"

#include <windows.h>

#include <commctrl.h>

#include "platform/win32/locale.h"
#include "platform/win32/wide.h"

namespace app {
namespace {

namespace win32 = platform::win32;

std::u16string currentDirectory() {
    std::wstring path(GetCurrentDirectoryW(0, nullptr), L'\0');
    path.resize(GetCurrentDirectoryW(static_cast<DWORD>(path.size()), path.data()));
    return win32::fromWide(path);
}

void prepareControls() {
    INITCOMMONCONTROLSEX classes{};
    classes.dwSize = sizeof classes;
    classes.dwICC =
        ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_PROGRESS_CLASS | ICC_WIN95_CLASSES;
    InitCommonControlsEx(&classes);
}

}  // namespace

Program::Program()
    : codePage_(win32::systemCodePage()),
      system_{files_, drives_, messages_, programs_, copier_, codePage_, win32::decimalSeparator()},
      place_{fileStore_, system_, currentDirectory()},
      session_{scanState_.ScanAnswer} {}

int Program::run() {
    prepareControls();
    catalogue::Main(session_, *this, place_);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        win32::dispatch(message);
    return static_cast<int>(message.wParam);
}

void Program::clearList1() {
    if (FrmMP3_) FrmMP3_->clearList1();
}

void Program::applySettings() {
    FrmMP3_.emplace(mainwindow::FrmMP3::Program{
        system_, session_.settings, *session_.Catalogue, scanState_, session_.AppPath,
        [this] { catalogue::RefillCdList(session_, *this, place_); }});
    FrmMP3_->create(nullptr);
}

void Program::fillList1(const std::vector<std::u16string>& rows) {
    FrmMP3_->fillList1(rows);
}

void Program::show() {
    FrmMP3_->show();
}

}  // namespace app
