#include "platform/filesystem.h"

#include "base/error.h"

namespace platform {

std::string readWholeFile(FileSystem& files, std::u16string_view path) {
    const std::unique_ptr<InputFile> file = files.openInput(path);
    std::string content(file->size(), '\0');
    const std::span<uint8_t> bytes(reinterpret_cast<uint8_t*>(content.data()), content.size());
    // A file that another program shortens meanwhile gives what is left of it.
    content.resize(file->read(0, bytes));
    return content;
}

}  // namespace platform
