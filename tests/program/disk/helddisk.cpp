// A disk that can be held, for the Windows programs of the tests: loaded into their processes with
// LD_PRELOAD, it keeps whoever writes to certain places of files in one folder waiting, as a slow
// drive does, until it is let go.
//
// HELD_DISK names the folder, HELD_DISK_ORDER the file that tells what is held: the first byte, the
// byte behind the last, and the name of the file ("*" for any). As long as there is no such file,
// nothing waits. Whoever waits makes a file of that name with ".met" behind it.
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "openfile.h"

namespace {

constexpr useconds_t kPause = 2000;  // microseconds between two looks at the order

using Write = ssize_t (*)(int, const void*, size_t);
using WriteAt = ssize_t (*)(int, const void*, size_t, off_t);

struct Order {
    off_t first = 0;
    off_t last = 0;
    std::string name;

    bool holds(off_t from, off_t to) const { return from < last && to > first; }
};

Order readOrder(const char* path) {
    Order order;
    std::ifstream file(path);
    file >> order.first >> order.last >> order.name;
    return file ? order : Order{};
}

bool isMeant(const Order& order, const std::string& path, const std::string& folder) {
    return path.starts_with(folder + '/') &&
           (order.name == "*" || path.ends_with('/' + order.name));
}

// Comes back when the file may take the bytes from `from` to `to`.
void waitForRoom(int file, off_t from, off_t to) {
    const char* folder = std::getenv("HELD_DISK");
    const char* told = std::getenv("HELD_DISK_ORDER");
    if (folder == nullptr || told == nullptr || access(told, F_OK) != 0) return;
    const std::string path = pathOf(file);
    const auto isHeld = [&] {
        const Order order = readOrder(told);
        return order.holds(from, to) && isMeant(order, path, folder);
    };
    while (isHeld()) {
        std::ofstream(std::string(told) + ".met");
        usleep(kPause);
    }
}

}  // namespace

extern "C" {

ssize_t write(int file, const void* bytes, size_t count) {
    static const auto real = next<Write>("write");
    const off_t place = lseek(file, 0, SEEK_CUR);
    if (place >= 0) waitForRoom(file, place, place + static_cast<off_t>(count));
    return real(file, bytes, count);
}

ssize_t pwrite(int file, const void* bytes, size_t count, off_t place) {
    static const auto real = next<WriteAt>("pwrite");
    waitForRoom(file, place, place + static_cast<off_t>(count));
    return real(file, bytes, count, place);
}

ssize_t pwrite64(int file, const void* bytes, size_t count, off_t place) {
    return pwrite(file, bytes, count, place);
}

}  // extern "C"
