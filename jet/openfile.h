// Opening a database file: mending, checking, telling its version.
#pragma once

#include <memory>
#include <string_view>

#include "jet/file.h"
#include "jet/format.h"

namespace jet {

struct OpenedFile {
    std::unique_ptr<File> file;
    bool readOnly = false;
    const Format* format = nullptr;
};

// Opens `path`, for reading alone where writing is refused, undoes what an interrupted transaction
// left, and checks that it is a file that we can handle. Throws as Store::open does.
OpenedFile openDatabaseFile(FileStore& files, std::u16string_view path);

// The format of a file that we can handle; throws as Store::open does.
const Format& checkedFormat(File& file);

}  // namespace jet
