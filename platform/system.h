// The running system's services in one hand: made once by the program, handed on by reference.
#pragma once

#include "base/codepage.h"
#include "platform/drives.h"
#include "platform/filecopier.h"
#include "platform/filesystem.h"
#include "platform/messages.h"
#include "platform/programs.h"

namespace platform {

struct System {
    FileSystem& files;
    Drives& drives;
    Messages& messages;
    Programs& programs;
    FileCopier& copier;
    const base::CodePage& codePage;
    char16_t decimalSeparator;  // of the user's regional settings
};

}  // namespace platform
