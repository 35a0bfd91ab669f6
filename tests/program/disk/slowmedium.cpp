// A slow medium, for the Windows programs of the tests: loaded into their processes with
// LD_PRELOAD, it makes them wait at each read of a file below a folder of the name that SLOW_MEDIUM
// tells, as a drive that has to seek does.
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "openfile.h"

namespace {

constexpr useconds_t kSeek = 5000;  // microseconds

using Read = ssize_t (*)(int, void*, size_t);
using ReadAt = ssize_t (*)(int, void*, size_t, off_t);

void seek(int file) {
    const char* name = std::getenv("SLOW_MEDIUM");
    if (name == nullptr) return;
    if (pathOf(file).find(std::string("/") + name + '/') != std::string::npos) usleep(kSeek);
}

}  // namespace

extern "C" {

ssize_t read(int file, void* bytes, size_t count) {
    static const auto real = next<Read>("read");
    seek(file);
    return real(file, bytes, count);
}

ssize_t pread(int file, void* bytes, size_t count, off_t place) {
    static const auto real = next<ReadAt>("pread");
    seek(file);
    return real(file, bytes, count, place);
}

ssize_t pread64(int file, void* bytes, size_t count, off_t place) {
    return pread(file, bytes, count, place);
}

}  // extern "C"
