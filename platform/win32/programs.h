// Starting other programs of the running system.
#pragma once

#include "platform/programs.h"

namespace platform::win32 {

// `program` is a full path, or a name to be found where the system keeps programs and along the
// PATH; it may stand between double quotation marks, and ".exe" may be left out. It is never looked
// for in the current folder (which may be an unknown medium), and it is named to the system apart
// from the command line, so that blanks in it cannot make another program start. Throws the
// system's error when there is no such program or it cannot be started.
class Win32Programs : public Programs {
  public:
    void start(std::u16string_view program, std::u16string_view commandLine) override;
};

}  // namespace platform::win32
