// A folder for the files under way to another one.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace platform::win32 {

// Some systems go through the whole folder to make a file in it, for its name might be there in
// other letters. Files that are to be copied to a large folder are therefore made in a small one,
// which lies in the large one: so they are given their final names without being moved to another
// drive, and have the rights that they would have there.
class ScratchFolder {
  public:
    // For files on their way to `target` (with its backslash), where this process may have no other
    // such folder. Makes none yet.
    explicit ScratchFolder(std::u16string_view target) : target_(target), path_(target) {}
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    // Removes it, once the files in it are gone.
    ~ScratchFolder();

    // Makes the folder; does nothing from the second time on.
    void make();

    const std::u16string& target() const { return target_; }
    // Where files are to be made from now on, with its backslash: the target itself when there is
    // no folder or none could be made, for then making the file does without or tells what is
    // wrong. Their numbers begin at kFirstNumber.
    const std::u16string& path() const { return path_; }

    // The number 0 belongs to a file that is replaced in the target itself, the next one to the
    // folder.
    static constexpr uint32_t kFirstNumber = 2;

  private:
    const std::u16string target_;
    std::u16string path_;
    bool tried_ = false;
};

}  // namespace platform::win32
