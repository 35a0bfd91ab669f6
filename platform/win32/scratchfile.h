// A file under way, under a name of its own until it is whole.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/win32/handle.h"

namespace platform::win32 {

// Names a file in `folder` (with its backslash) that no other running program uses, and removes
// what is there in the end unless it was given its final name. One left behind by a program that
// was killed may be overwritten by a later one. The name does not grow with the final one, which
// may be as long as the file system allows already. Files that are under way in one folder at the
// same time have different numbers.
class ScratchFile {
  public:
    ScratchFile(std::u16string_view folder, uint32_t number);
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile();

    const std::u16string& path() const { return path_; }

    // Removes what a killed program has left, for a file that must be new.
    void remove() const;

    // Both of these give the file its final name, on the same drive; whoever wrote it has closed
    // it. Both throw systemError, and then the file goes with this object. The one needs a name
    // that is free and a file that open() has opened, which gives the system's error; any thread
    // may do that. The other takes the place of what has the name, and returns once that is on the
    // medium.
    DWORD open();
    void moveTo(std::u16string_view target);
    void replace(std::u16string_view target);

  private:
    std::u16string path_;
    FileHandle file_;
    bool moved_ = false;
};

// Removes the file `path`, read-only or not; leaves it there when that fails.
void removeScratch(std::u16string_view path);

}  // namespace platform::win32
