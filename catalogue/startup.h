// What the program does first: it finds its files, opens the catalogue and reads the settings
// (settingsfile.h), in this order. An error in any of it ends the program with a report before a
// window is shown and before anything is written.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "catalogue/settingsfile.h"
#include "jet/database.h"

namespace catalogue {

// The program directory with one trailing backslash: the working directory at start, which for
// the root of a drive ends with a backslash already.
std::u16string AppPath(std::u16string_view workingDirectory);

// Opens AppPath's "Brivantole.mdb". Errors name the file: besides those of the engine, a catalogue
// without the table ListDonnees (TableNotFound) or without one of its fields (ItemNotFound).
// `files` must outlive the database.
std::unique_ptr<jet::Database> OpenCatalogue(jet::FileStore& files, std::u16string_view AppPath);

}  // namespace catalogue
