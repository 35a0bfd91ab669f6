// The folders that the copy's window offers as a destination: those on the way from the root of a
// drive to the chosen one, and those in it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/filecopier.h"
#include "platform/filesystem.h"

namespace newcd {

class FolderList {
  public:
    struct Row {
        std::u16string name;  // the root's is "C:\"
        int depth = 0;        // 0 for the root
        bool open = false;    // the chosen folder or one above it
        bool operator==(const Row&) const = default;
    };

    // `files` must outlive the list, which starts without any folder.
    explicit FolderList(platform::FileSystem& files) : files_(files) {}

    // Chooses the folder `path`, or the nearest one above it that is there. Throws base::Error when
    // not even the root of the drive can be listed; nothing changes then.
    void setPath(std::u16string_view path);

    // The chosen folder: "C:\", "C:\Musique"; empty when there is none.
    const std::u16string& path() const { return path_; }
    const std::vector<Row>& rows() const { return rows_; }
    // The row of the chosen folder; 0 when there is none.
    size_t chosenRow() const { return chosenRow_; }

    // Chooses the folder of a row, or the one above the chosen one. Throws as setPath does.
    void open(size_t row);
    void openParent();
    // Creates a folder in the chosen one and chooses it. Throws base::Error when it cannot.
    void makeFolder(platform::FileCopier& copier, std::u16string_view name);

  private:
    // Lists `path`; throws when it cannot be listed.
    void list(std::u16string_view path);
    std::u16string pathOf(size_t row) const;

    platform::FileSystem& files_;
    std::u16string path_;
    std::vector<Row> rows_;
    size_t chosenRow_ = 0;
};

}  // namespace newcd
