// A drive of one folder inside the other, as deep as the longest path of the system allows, with
// one file in the innermost. Made up while it is asked for.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/filesystem.h"
#include "tests/fakes/memoryfilesystem.h"

namespace fakes {

class DeepFileSystem : public MemoryFileSystem {
  public:
    // The folders are "D:\f", "D:\f\f" and so on, `depth` of them.
    DeepFileSystem(size_t depth, std::u16string fileName)
        : deepestLength_(2 + 2 * depth), fileName_(std::move(fileName)) {}

    std::unique_ptr<platform::FolderCursor> openFolder(std::u16string_view path) override {
        const bool deepest = path.size() >= deepestLength_;
        return std::make_unique<Cursor>(deepest ? platform::FolderEntry{fileName_, false, false}
                                                : platform::FolderEntry{u"f", true, false});
    }

  private:
    class Cursor : public platform::FolderCursor {
      public:
        explicit Cursor(platform::FolderEntry entry) : entry_(std::move(entry)) {}
        bool next(platform::FolderEntry& entry) override {
            if (ended_) return false;
            entry = entry_;
            ended_ = true;
            return true;
        }

      private:
        platform::FolderEntry entry_;
        bool ended_ = false;
    };

    size_t deepestLength_;
    std::u16string fileName_;
};

}  // namespace fakes
