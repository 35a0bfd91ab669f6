#include "app/program.h"

#include <windows.h>

#include <commctrl.h>

#include "catalogue/startup.h"
#include "mainwindow/FrmMP3.h"
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
      AppPath_(catalogue::AppPath(currentDirectory())),
      catalogue_(catalogue::OpenCatalogue(fileStore_, AppPath_)),
      settings_(catalogue::LoadSettings(files_, drives_, AppPath_, codePage_)) {}

int Program::run() {
    prepareControls();
    mainwindow::FrmMP3 window({system_, settings_, *catalogue_, scanState_, AppPath_});
    window.create(nullptr);
    window.fillCdList();
    window.show();
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        win32::dispatch(message);
    return static_cast<int>(message.wParam);
}

}  // namespace app
