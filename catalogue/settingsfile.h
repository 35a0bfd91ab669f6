// The settings on disk: "Brivantole.ini" in the program directory, one value per line, each known
// by its position alone. Numbers stand between two blanks, the first of them a minus sign when
// negative; true is 255. Reading and writing follow the same order, which is written down once.
#pragma once

#include <string>
#include <string_view>

#include "base/codepage.h"
#include "catalogue/settings.h"
#include "platform/drives.h"
#include "platform/filesystem.h"

namespace catalogue {

// The bytes of the file. SubscriptOutOfRange when a count exceeds its table. A line end inside a
// text, which would shift every later value, becomes a blank.
std::string formatSettings(const Settings& settings, const base::CodePage& codePage);

// The settings in `bytes`. A file as formatSettings writes it gives back exactly what was
// written. Any other file is read value by value (see readByValue) and, when values are left over
// or one does not fit, line by line. Throws the error of the reading that came further, its place
// being the line ("ligne 12").
Settings parseSettings(std::string_view bytes, const base::CodePage& codePage);

// `AppPath` ends with a backslash. Errors name the file and, where it has one, the line. A stored
// CD-ROM drive that is none of `drives` any more gives way to one that is (checkedCdRomDrive).
Settings LoadSettings(platform::FileSystem& files, const platform::Drives& drives,
                      std::u16string_view AppPath, const base::CodePage& codePage);
// Replaces the file whole.
void SaveSettings(platform::FileSystem& files, std::u16string_view AppPath,
                  const base::CodePage& codePage, const Settings& settings);

}  // namespace catalogue
