// Starting other programs of the running system.
#pragma once

#include "platform/programs.h"

namespace platform::win32 {

// `program` is a full path, or a name to be found where the system keeps programs, along the PATH,
// or else from the current folder on; it may stand between double quotation marks, and ".exe" may
// be left out. It is named to the system apart from the command line, so that blanks in it cannot
// make another program start, and with its whole path, so that no file of the same name in the
// current folder (which may be on any medium) comes before the system's own. Throws the system's
// error when there is no such program or it cannot be started.
class Win32Programs : public Programs {
  public:
    void start(std::u16string_view program, std::u16string_view commandLine) override;
};

}  // namespace platform::win32
