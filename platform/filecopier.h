// Copying files to a place where nothing may be overwritten, as the logic sees it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>

namespace platform {

// How many bytes of a file have been copied; called now and then while the copy goes on, not at
// all for one that is soon over. What it throws ends the copy as an error of the copy itself does.
using CopyProgress = std::function<void(uint64_t done)>;

// A file to be copied, and how many bytes it had when it was last seen; 0 also where that is not
// known.
struct CopySource {
    std::u16string_view path;
    uint64_t size = 0;
};

class FileCopier {
  public:
    static constexpr size_t kMostAhead = 32;

    virtual ~FileCopier() = default;
    // Creates one folder, whose parent must exist. Throws base::Error when it cannot, also when
    // the folder is there already.
    virtual void createFolder(std::u16string_view path) = 0;
    // Whether there is a file that opens for reading. Never throws: any failure means no. One that
    // others have made in the course of a row of copies may be missed.
    virtual bool opens(std::u16string_view path) = 0;
    // Copies the file `source` with its time stamp. Under the name `target` appears the whole
    // file or, when this throws, nothing new: what is there already stays as it is and is error
    // FileAlreadyExists, even when it came up while the copy went on. `next` are the files that are
    // most likely to be copied after this one, to the same folder and in their order, kMostAhead at
    // most. They may be read already, under names of their own, before it is their turn.
    virtual void copy(const CopySource& source, std::u16string_view target,
                      std::span<const CopySource> next, const CopyProgress& progress) = 0;
    // Ends a row of copies: what was read ahead goes from the disk.
    virtual void endCopies() = 0;
};

}  // namespace platform
