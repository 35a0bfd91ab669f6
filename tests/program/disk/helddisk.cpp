// A disk that can be held, for the Windows programs of the tests: loaded into their processes with
// LD_PRELOAD, it lets a file of one folder take so many bytes and keeps the writer of more waiting,
// as a slow drive does, until it is let go.
//
// HELD_DISK names the folder, HELD_DISK_LIMIT the file that holds the number of bytes; as long as
// there is no such file, nothing waits.
#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>

namespace {

constexpr useconds_t kPause = 2000;  // microseconds between two looks at the limit

using Write = ssize_t (*)(int, const void*, size_t);
using WriteAt = ssize_t (*)(int, const void*, size_t, off_t);

off_t limit(const char* path) {
    FILE* file = std::fopen(path, "r");
    if (file == nullptr) return std::numeric_limits<off_t>::max();
    long long bytes = 0;
    const bool read = std::fscanf(file, "%lld", &bytes) == 1;
    std::fclose(file);
    return read ? static_cast<off_t>(bytes) : std::numeric_limits<off_t>::max();
}

bool liesInFolder(int file, std::string_view folder) {
    struct stat status {};
    if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) return false;
    std::array<char, 4096> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    const ssize_t length = readlink(link.c_str(), path.data(), path.size());
    return length > 0 && std::string_view(path.data(), static_cast<size_t>(length))
                             .starts_with(std::string(folder) + '/');
}

// Comes back when the file may take bytes up to `end`; errno is as it was before.
void waitForRoom(int file, off_t end) {
    const char* folder = std::getenv("HELD_DISK");
    const char* told = std::getenv("HELD_DISK_LIMIT");
    if (folder == nullptr || told == nullptr || end <= limit(told)) return;
    if (!liesInFolder(file, folder)) return;
    while (end > limit(told))
        usleep(kPause);
}

template <typename Function>
Function next(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {

ssize_t write(int file, const void* bytes, size_t count) {
    static const auto real = next<Write>("write");
    const off_t place = lseek(file, 0, SEEK_CUR);
    if (place >= 0) waitForRoom(file, place + static_cast<off_t>(count));
    return real(file, bytes, count);
}

ssize_t pwrite(int file, const void* bytes, size_t count, off_t place) {
    static const auto real = next<WriteAt>("pwrite");
    waitForRoom(file, place + static_cast<off_t>(count));
    return real(file, bytes, count, place);
}

ssize_t pwrite64(int file, const void* bytes, size_t count, off_t place) {
    return pwrite(file, bytes, count, place);
}

}  // extern "C"
