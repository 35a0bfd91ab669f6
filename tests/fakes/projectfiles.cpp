#include "tests/fakes/projectfiles.h"

#include <fstream>
#include <iterator>

namespace fakes {

std::filesystem::path projectPath(const std::string& relative) {
    return std::filesystem::path(BRIVANTOLE_SOURCE_DIR) / relative;
}

std::string shippedCatalogue() {
    return bytesOf(projectPath("data/Brivantole.mdb"));
}

std::string bytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace fakes
