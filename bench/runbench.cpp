// runbench DRIVE CATALOGUE FOLDER: copies CATALOGUE to FOLDER and takes the drive ("E:") through a
// run as the program does, without its window: reading, and filtering by the strictest rules, for a
// copy that is never started. Prints the seconds of both, the tracks, the memory that the process
// had before, and the greatest that it had, both in bytes.
#include <windows.h>

#include <psapi.h>

#include <cstdio>
#include <exception>
#include <string>

#include "base/text.h"
#include "bench/hostless.h"
#include "catalogue/startup.h"
#include "newcd/copyfilter.h"
#include "newcd/reading.h"
#include "platform/win32/filecopier.h"
#include "platform/win32/filestore.h"
#include "platform/win32/filesystem.h"
#include "platform/win32/locale.h"

namespace {

using namespace platform::win32;
using bench::NoMessages;
using bench::secondsNow;

class NoWindow : public newcd::CopyWindow {
  public:
    void showProgress(std::u16string_view) override {}
    void showAdvance(int64_t, int64_t) override {}
    void yield() override {}
    void turnCancelIntoOk() override {}
    void addTrack(std::u16string_view, bool) override {}
    void enableStart(bool) override {}
    void enableList(bool) override {}
    void waitForEvents() override {}
    void askNewName(std::u16string_view, std::u16string_view) override {}
};

PROCESS_MEMORY_COUNTERS memory() {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters;
}

void run(const std::u16string& drive, const std::u16string& empty, std::u16string folder) {
    folder = catalogue::AppPath(folder);
    Win32FileSystem files;
    files.replaceFile(folder + u"Brivantole.mdb", platform::readWholeFile(files, empty));
    Win32FileStore store;
    Win32FileCopier copier;
    NoMessages messages;
    NoWindow window;
    const base::CodePage codePage = systemCodePage();
    const auto database = catalogue::OpenCatalogue(store, folder);

    catalogue::Settings settings;
    catalogue::ResetDefaultExtensions(settings);
    for (int type = 0; type <= settings.NbExtensions; ++type)
        settings.ExtensionFlags(type, catalogue::copiedColumn) = 1;
    settings.CdRomDrive = drive;
    settings.CopyOption1 = 2;
    settings.CopyOption2 = 2;
    const newcd::RunTools tools{.files = files,
                                .copier = copier,
                                .messages = messages,
                                .codePage = codePage,
                                .catalogue = *database,
                                .settings = settings,
                                .AppPath = folder,
                                .decimalSeparator = u','};
    scan::ScanState state;
    newcd::RunState run(state);
    const size_t before = memory().WorkingSetSize;
    const double start = secondsNow();
    newcd::readMedium(tools, run, window);
    const double read = secondsNow();
    newcd::filterForCopy(tools, run, window);
    std::printf("%.6f %.6f %lld %llu %llu\n", read - start, secondsNow() - read,
                static_cast<long long>(run.FoundCount), before, memory().PeakWorkingSetSize);
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 4) {
        std::fputs("runbench DRIVE CATALOGUE FOLDER\n", stderr);
        return 2;
    }
    try {
        run(base::fromUtf8(arguments[1]), base::fromUtf8(arguments[2]),
            base::fromUtf8(arguments[3]));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "runbench: %s\n", error.what());
        return 1;
    }
    return 0;
}
