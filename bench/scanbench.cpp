// scanbench DRIVE CATALOGUE FOLDER: copies CATALOGUE to FOLDER and adds the drive ("E:") to the
// copy as a CD, just as the program does, without its window. Prints the seconds from the first
// step to the committed last row, the rows, and the greatest memory the process had, in bytes.
#include <windows.h>

#include <psapi.h>

#include <cstdio>
#include <string>

#include "base/error.h"
#include "base/text.h"
#include "bench/hostless.h"
#include "catalogue/startup.h"
#include "platform/win32/drives.h"
#include "platform/win32/filestore.h"
#include "platform/win32/filesystem.h"
#include "platform/win32/locale.h"
#include "platform/win32/path.h"
#include "scan/scandrive.h"

namespace {

using namespace platform::win32;
using bench::NoMessages;
using bench::secondsNow;

class NoWindow : public scan::ScanView {
  public:
    void showWaiting() override {}
    void keepAlive() override {}
    void setWaitingCaption(std::u16string_view) override {}
};

size_t peakMemory() {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.PeakWorkingSetSize;
}

void run(const std::u16string& drive, const std::u16string& empty, std::u16string folder) {
    folder = catalogue::AppPath(folder);
    Win32FileSystem files;
    files.replaceFile(folder + u"Brivantole.mdb", platform::readWholeFile(files, empty));
    Win32FileStore store;
    Win32Drives drives;
    NoMessages messages;
    NoWindow window;
    const base::CodePage codePage = systemCodePage();
    const auto database = catalogue::OpenCatalogue(store, folder);

    catalogue::Settings settings;
    catalogue::ResetDefaultExtensions(settings);
    settings.CdRomDrive = drive;
    settings.ScanCdName = u"Banc d'essai";
    scan::ScanState state;
    const scan::ScanTools tools{{files, messages, codePage}, drives, *database, folder};

    const double start = secondsNow();
    scan::ScanDriveIntoCatalogue(tools, settings, state, window);
    const double seconds = secondsNow() - start;
    const size_t rows = database->OpenRecordset(u"ListDonnees")->RecordCount();
    std::printf("%.6f %llu %llu\n", seconds, rows, peakMemory());
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 4) {
        std::fputs("scanbench DRIVE CATALOGUE FOLDER\n", stderr);
        return 2;
    }
    try {
        run(base::fromUtf8(arguments[1]), base::fromUtf8(arguments[2]),
            base::fromUtf8(arguments[3]));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "scanbench: %s\n", error.what());
        return 1;
    }
    return 0;
}
