// A folder for the files under way to another one.
#pragma once

#include <string>
#include <string_view>

namespace platform::win32 {

// Some systems go through the whole folder to make a file in it, for its name might be there in
// other letters. Files that are to be copied to a large folder are therefore made in a small one,
// which lies in the large one: so they are given their final names without being moved to another
// drive, and have the rights that they would have there.
class ScratchFolder {
  public:
    // Makes one in `target` (with its backslash), where this process may have no other.
    explicit ScratchFolder(std::u16string_view target);
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    // Removes it, once the files in it are gone.
    ~ScratchFolder();

    const std::u16string& target() const { return target_; }
    // Where the files are to be made, with its backslash: the target itself when there could be no
    // folder, for then making the file does without or tells what is wrong. Their numbers begin at
    // kFirstNumber.
    const std::u16string& path() const { return path_; }

    // The number 0 belongs to a file that is replaced in the target itself, the next one to the
    // folder.
    static constexpr uint32_t kFirstNumber = 2;

  private:
    const std::u16string target_;
    std::u16string path_;
};

}  // namespace platform::win32
