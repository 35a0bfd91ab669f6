// Where a copied file goes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace newcd {

struct CopyTarget {
    std::u16string folder;  // without a trailing backslash
    std::u16string name;
    // Every folder between the destination and the file, outermost first; the destination itself
    // is the user's and is not among them.
    std::vector<std::u16string> foldersToCreate;
};

// The target of `sourcePath` ("D:\Album\01.mp3") below `destination`, which may end in a backslash
// when it is the root of a drive. `flat`: right in the destination, without the source's folders.
CopyTarget copyTarget(std::u16string_view destination, std::u16string_view sourcePath, bool flat);

// The full path of `name` in `folder`, with one backslash between them.
std::u16string pathIn(std::u16string_view folder, std::u16string_view name);

}  // namespace newcd
