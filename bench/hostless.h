// What stands for the user and the clock where the program's own code is measured under Windows.
#pragma once

#include <windows.h>

#include <psapi.h>

#include <cstdio>
#include <exception>
#include <string>
#include <string_view>

#include "base/error.h"
#include "base/text.h"
#include "catalogue/startup.h"
#include "platform/messages.h"
#include "platform/win32/filesystem.h"

namespace bench {

// Nobody is there to answer: a message ends the measurement as an error.
class NoMessages : public platform::Messages {
  public:
    platform::Answer show(std::u16string_view text, std::u16string_view /*title*/,
                          int /*flags*/) override {
        throw base::Error(base::ErrorNumber::DeviceIo, std::u16string(text));
    }
};

// Seconds since some fixed moment, by the system's finest clock.
inline double secondsNow() {
    LARGE_INTEGER frequency;
    LARGE_INTEGER now;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&now);
    return static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// Makes a catalogue of a folder: a copy of the file `empty`. Gives the folder as the program's own,
// with its backslash.
inline std::u16string copyCatalogue(const std::u16string& empty, std::u16string folder) {
    folder = catalogue::AppPath(folder);
    platform::win32::Win32FileSystem files;
    files.replaceFile(folder + u"Brivantole.mdb", platform::readWholeFile(files, empty));
    return folder;
}

inline PROCESS_MEMORY_COUNTERS memoryOfProcess() {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters;
}

// The body of a program that takes three arguments: calls `run` with them and gives its exit code.
template <typename Run>
int runWithThree(const char* usage, int count, char** arguments, Run run) {
    if (count != 4) {
        std::fprintf(stderr, "%s\n", usage);
        return 2;
    }
    try {
        run(std::string(arguments[1]), base::fromUtf8(arguments[2]), base::fromUtf8(arguments[3]));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", arguments[0], error.what());
        return 1;
    }
    return 0;
}

}  // namespace bench
