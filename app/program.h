// The program's parts, wired together.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "catalogue/main.h"
#include "mainwindow/FrmMP3.h"
#include "platform/system.h"
#include "platform/win32/drives.h"
#include "platform/win32/filecopier.h"
#include "platform/win32/filestore.h"
#include "platform/win32/filesystem.h"
#include "platform/win32/programs.h"
#include "platform/win32/ui/com.h"
#include "platform/win32/ui/messages.h"
#include "scan/scanstate.h"

namespace app {

class Program : private catalogue::MainWindow {
  public:
    Program();

    // Opens the catalogue, reads the settings, shows the main window and handles its events until
    // it is closed; gives the exit code. Throws when the catalogue or the settings cannot be had.
    int run();

  private:
    void clearList1() override;
    void applySettings() override;
    void fillList1(const std::vector<std::u16string>& rows) override;
    void show() override;

    platform::win32::ComApartment apartment_;
    platform::win32::Win32FileSystem files_;
    platform::win32::Win32FileStore fileStore_;
    platform::win32::Win32Drives drives_;
    platform::win32::Win32Messages messages_;
    platform::win32::Win32Programs programs_;
    platform::win32::Win32FileCopier copier_;
    base::CodePage codePage_;
    platform::System system_;
    catalogue::StartPlace place_;
    scan::ScanState scanState_;
    catalogue::Session session_;
    // Made once what it shows can be had.
    std::optional<mainwindow::FrmMP3> FrmMP3_;
};

}  // namespace app
