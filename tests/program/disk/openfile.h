// What the libraries that stand between Wine and the system have in common.
#pragma once

#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <string>

// The path of an open file, "" when it is none that keeps its bytes.
inline std::string pathOf(int file) {
    struct stat status {};
    if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) return {};
    std::array<char, 4096> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    const ssize_t length = readlink(link.c_str(), path.data(), path.size());
    return length > 0 ? std::string(path.data(), static_cast<size_t>(length)) : std::string();
}

// The function of this name that would have been called.
template <typename Function>
Function next(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}
