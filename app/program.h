// The program's parts, wired together.
#pragma once

#include <memory>
#include <string>

#include "catalogue/settings.h"
#include "jet/database.h"
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

class Program {
  public:
    // Opens the catalogue and reads the settings beside the program; throws when one of them
    // cannot be had.
    Program();

    // Shows the main window and handles its events until it is closed; gives the exit code.
    int run();

  private:
    platform::win32::ComApartment apartment_;
    platform::win32::Win32FileSystem files_;
    platform::win32::Win32FileStore fileStore_;
    platform::win32::Win32Drives drives_;
    platform::win32::Win32Messages messages_;
    platform::win32::Win32Programs programs_;
    platform::win32::Win32FileCopier copier_;
    base::CodePage codePage_;
    platform::System system_;
    std::u16string AppPath_;
    std::unique_ptr<jet::Database> catalogue_;
    catalogue::Settings settings_;
    scan::ScanState scanState_;
};

}  // namespace app
