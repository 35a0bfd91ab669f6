// Files and folders, as the logic sees them. Paths are absolute, with backslashes; they may be
// longer than 260 characters. Every failure is a base::Error with the system's own text.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace platform {

// A file opened for reading only; others may read it, too.
class InputFile {
  public:
    virtual ~InputFile() = default;
    virtual uint64_t size() const = 0;
    // Reads up to bytes.size() bytes from `offset`; gives how many there were (less only at the
    // end).
    virtual size_t read(uint64_t offset, std::span<uint8_t> bytes) = 0;
};

// A file created or emptied for writing; closed by the destructor.
class OutputFile {
  public:
    virtual ~OutputFile() = default;
    virtual void write(std::string_view bytes) = 0;
};

struct FolderEntry {
    std::u16string name;
    bool isFolder = false;
    // A folder that stands elsewhere (a junction, a symbolic link): only through such a one can a
    // walk come back to a folder that it is in, so only there does asking folderIdentity pay.
    bool isLink = false;
};

// A listing under way, in the platform's own order.
class FolderCursor {
  public:
    virtual ~FolderCursor() = default;
    // Fills `entry` and gives true, or gives false at the end. "." and ".." are left out.
    // After an error the same call may be made again: it repeats the failing step.
    virtual bool next(FolderEntry& entry) = 0;
};

class FileSystem {
  public:
    virtual ~FileSystem() = default;
    virtual std::unique_ptr<InputFile> openInput(std::u16string_view path) = 0;
    virtual std::unique_ptr<OutputFile> createOutput(std::u16string_view path) = 0;
    virtual std::unique_ptr<FolderCursor> openFolder(std::u16string_view path) = 0;
    // What identifies the folder itself, whatever path leads to it (volume and file index), so
    // that a folder reached through a junction can be told to be its own ancestor.
    virtual std::u16string folderIdentity(std::u16string_view path) = 0;
    // Replaces the file's content whole: written beside, flushed, renamed. A crash or an error
    // leaves the old file or the new one.
    virtual void replaceFile(std::u16string_view path, std::string_view bytes) = 0;
};

// The whole content of a file.
std::string readWholeFile(FileSystem& files, std::u16string_view path);

}  // namespace platform
