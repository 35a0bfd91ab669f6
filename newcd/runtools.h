// What a run works with; everything outlives it.
#pragma once

#include <string_view>

#include "base/codepage.h"
#include "catalogue/settings.h"
#include "jet/database.h"
#include "platform/filecopier.h"
#include "platform/filesystem.h"
#include "platform/messages.h"

namespace newcd {

struct RunTools {
    platform::FileSystem& files;
    platform::FileCopier& copier;
    platform::Messages& messages;
    const base::CodePage& codePage;
    jet::Database& catalogue;
    const catalogue::Settings& settings;
    std::u16string_view AppPath;  // of the program, with a trailing backslash
    char16_t decimalSeparator;    // of the user's locale
};

}  // namespace newcd
