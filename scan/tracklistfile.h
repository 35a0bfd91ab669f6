// The scratch file between walk and analysis: one full path per line, CR LF. It is written in the
// code page; the first path that the code page lacks turns the whole file into UTF-8 with a
// byte-order mark. A path begins with a drive letter, so no file in the code page ever begins like
// that mark.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "base/codepage.h"
#include "platform/filesystem.h"

namespace scan {

class TrackListWriter {
  public:
    // Creates or empties the file at `path`. `files` and `codePage` must outlive the writer.
    TrackListWriter(platform::FileSystem& files, std::u16string_view path,
                    const base::CodePage& codePage);

    // Appends one line; it has left the program on return. After an error the same call may be
    // made again. Nothing is kept in memory, save while the file is turned into UTF-8.
    void writeLine(std::u16string_view line);

  private:
    void turnIntoUtf8();

    platform::FileSystem& files_;
    const std::u16string path_;
    const base::CodePage& codePage_;
    std::unique_ptr<platform::OutputFile> file_;
    bool utf8_ = false;
    std::string rewritten_;  // the content in UTF-8 until it is in the file
};

// Reads the lines back one by one, in blocks.
class TrackListReader {
  public:
    TrackListReader(platform::FileSystem& files, std::u16string_view path,
                    const base::CodePage& codePage);

    // Fills `line` and gives true, or gives false at the end of the file.
    bool next(std::u16string& line);

  private:
    bool fillBuffer();

    static constexpr size_t kBuffer = 65536;

    const base::CodePage& codePage_;
    std::unique_ptr<platform::InputFile> file_;
    uint64_t readUpTo_ = 0;
    std::array<uint8_t, kBuffer> buffer_;
    std::string_view unread_;  // what is left in buffer_
    std::string bytes_;        // of the line under way
    bool utf8_ = false;
};

}  // namespace scan
