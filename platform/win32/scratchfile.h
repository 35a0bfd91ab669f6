// A file under way, beside its place, until it is whole.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace platform::win32 {

// Names a file in the folder of `target` that no other running program uses, and removes what is
// there in the end unless it was given its final name. One left behind by a program that was killed
// may be overwritten by a later one. The name does not grow with the target's, which may be as long
// as the file system allows already. Files that are under way in one folder at the same time have
// different numbers.
class ScratchFile {
  public:
    explicit ScratchFile(std::u16string_view target, int number = 0);
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile();

    const std::u16string& path() const { return path_; }

    // Removes what a killed program has left, for a file that must be new.
    void remove() const;
    // Both give the file its final name, in the same folder; it must be closed. Both throw
    // systemError, and then the file goes with this object. The one needs a name that is free, the
    // other takes the place of what has it, and returns once that is on the medium.
    void moveTo(std::u16string_view target);
    void replace(std::u16string_view target);

  private:
    std::u16string path_;
    bool moved_ = false;
};

// Removes from `folder` (with its backslash) the files under way of programs that run no more. On a
// network drive nothing is removed: whose such a file is, only its own machine knows.
void removeAbandonedScratch(std::u16string_view folder);

}  // namespace platform::win32
