// scanbench DRIVE CATALOGUE FOLDER: copies CATALOGUE to FOLDER and adds the drive ("E:") to the
// copy as a CD, just as the program does, without its window. Prints the seconds from the first
// step to the committed last row, the rows, and the greatest memory the process had, in bytes.
#include <windows.h>

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

void run(const std::string& drive, const std::u16string& empty, const std::u16string& target) {
    const std::u16string folder = bench::copyCatalogue(empty, target);
    Win32FileSystem files;
    Win32FileStore store;
    Win32Drives drives;
    NoMessages messages;
    NoWindow window;
    const base::CodePage codePage = systemCodePage();
    const auto database = catalogue::OpenCatalogue(store, folder);

    catalogue::Settings settings;
    catalogue::ResetDefaultExtensions(settings);
    settings.CdRomDrive = base::fromUtf8(drive);
    settings.ScanCdName = u"Banc d'essai";
    scan::ScanState state;
    const scan::ScanTools tools{{files, messages, codePage}, drives, *database, folder};

    const double start = secondsNow();
    scan::ScanDriveIntoCatalogue(tools, settings, state, window);
    const double seconds = secondsNow() - start;
    const size_t rows = database->OpenRecordset(u"ListDonnees")->RecordCount();
    std::printf("%.6f %llu %llu\n", seconds, rows, bench::memoryOfProcess().PeakWorkingSetSize);
}

}  // namespace

int main(int count, char** arguments) {
    return bench::runWithThree("scanbench DRIVE CATALOGUE FOLDER", count, arguments, run);
}
