// Copying files to a place where nothing may be overwritten, as the logic sees it.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace platform {

// How much of a file has been copied, in bytes; called now and then while the copy goes on. What
// it throws ends the copy as an error of the copy itself does.
using CopyProgress = std::function<void(uint64_t done, uint64_t total)>;

class FileCopier {
  public:
    virtual ~FileCopier() = default;
    // Creates one folder, whose parent must exist. Throws base::Error when it cannot, also when
    // the folder is there already.
    virtual void createFolder(std::u16string_view path) = 0;
    // Whether there is a file that opens for reading. Never throws: any failure means no.
    virtual bool opens(std::u16string_view path) = 0;
    // Copies the file `source` with its time stamp. Under the name `target` appears the whole
    // file or, when this throws, nothing new: what is there already stays as it is and is error
    // FileAlreadyExists, even when it came up while the copy went on.
    virtual void copy(std::u16string_view source, std::u16string_view target,
                      const CopyProgress& progress) = 0;
};

}  // namespace platform
