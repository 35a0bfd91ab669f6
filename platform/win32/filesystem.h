// Files and folders of the running system.
#pragma once

#include "platform/filesystem.h"

namespace platform::win32 {

class Win32FileSystem : public FileSystem {
  public:
    std::unique_ptr<InputFile> openInput(std::u16string_view path) override;
    std::unique_ptr<OutputFile> createOutput(std::u16string_view path) override;
    std::unique_ptr<FolderCursor> openFolder(std::u16string_view path) override;
    std::u16string folderIdentity(std::u16string_view path) override;
    void replaceFile(std::u16string_view path, std::string_view bytes) override;
};

}  // namespace platform::win32
