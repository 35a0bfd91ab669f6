// Files of the project that tests read where they lie.
#pragma once

#include <filesystem>
#include <string>

namespace fakes {

// The absolute path of `relative`, which starts at the project's root.
std::filesystem::path projectPath(const std::string& relative);

// The bytes of the empty catalogue as it is shipped beside the program.
std::string shippedCatalogue();

// The bytes of the file at `path`; none when it cannot be read.
std::string bytesOf(const std::filesystem::path& path);

}  // namespace fakes
