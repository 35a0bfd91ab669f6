// A folder of one test, removed with all that is in it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"

namespace testing_win32 {

class TempFolder {
  public:
    // Its name holds characters of no 8-bit code page together.
    TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder();

    const std::u16string& path() const { return path_; }
    // "PATH\name".
    std::u16string file(std::u16string_view name) const;
    // Creates the file and gives its path.
    std::u16string write(std::u16string_view name, std::string_view content) const;
    // Creates the folder and gives its path.
    std::u16string folder(std::u16string_view name) const;
    // Creates nested folders until the path is longer than `characters`; gives the innermost.
    std::u16string deepFolder(size_t characters) const;

  private:
    std::u16string path_;
};

std::string content(std::u16string_view path);
// The names in the folder, sorted.
std::vector<std::u16string> names(std::u16string_view folder);
// A folder `link` that stands for the folder `target`; false where the system cannot do that here.
bool makeFolderLink(std::u16string_view link, std::u16string_view target);
// The folder that the test program itself is in.
std::u16string programFolder();

// The number of the error that `call` throws; no number when it throws none.
template <class Call>
int errorOf(Call call) {
    try {
        call();
    } catch (const base::Error& error) {
        return static_cast<int>(error.number());
    }
    return 0;
}

}  // namespace testing_win32
