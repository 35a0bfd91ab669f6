// A file under way, beside its place, until it is whole.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace platform::win32 {

// Names a file in the folder of `target` that no other running program uses, and removes what is
// there unless moveTo has given it its final name. One left behind by a program that was killed may
// be overwritten by a later one. The name does not grow with the target's, which may be as long as
// the file system allows already.
class ScratchFile {
  public:
    explicit ScratchFile(std::u16string_view target);
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile();

    const std::u16string& path() const { return path_; }

    // Gives the file its final name; the file must be closed. `flags` as MoveFileExW takes them.
    // Throws systemError, and then the file goes with this object.
    void moveTo(DWORD flags);

  private:
    void remove() const;

    std::u16string target_;
    std::u16string path_;
    bool moved_ = false;
};

}  // namespace platform::win32
