// runbench DRIVE CATALOGUE FOLDER: copies CATALOGUE to FOLDER and takes the drive ("E:") through a
// run as the program does, without its window: reading, and filtering by the strictest rules, for a
// copy that is never started. Prints the seconds of both, the tracks, the memory that the process
// had before, and the greatest that it had, both in bytes.
#include <cstdio>
#include <string>

#include "bench/newcdhost.h"
#include "newcd/copyfilter.h"
#include "newcd/reading.h"

namespace {

void run(const std::string& drive, const std::u16string& empty, const std::u16string& folder) {
    bench::NewCdHost host(bench::copyCatalogue(empty, folder));
    catalogue::Settings& settings = host.settings;
    catalogue::ResetDefaultExtensions(settings);
    for (int type = 0; type <= settings.NbExtensions; ++type)
        settings.ExtensionFlags(type, catalogue::copiedColumn) = 1;
    settings.CdRomDrive = base::fromUtf8(drive);
    settings.CopyOption1 = 2;
    settings.CopyOption2 = 2;

    const size_t before = bench::memoryOfProcess().WorkingSetSize;
    const double start = bench::secondsNow();
    newcd::readMedium(host.tools, host.run, host.window);
    const double read = bench::secondsNow();
    newcd::filterForCopy(host.tools, host.run, host.window);
    std::printf("%.6f %.6f %lld %llu %llu\n", read - start, bench::secondsNow() - read,
                static_cast<long long>(host.run.FoundCount), before,
                bench::memoryOfProcess().PeakWorkingSetSize);
}

}  // namespace

int main(int count, char** arguments) {
    return bench::runWithThree("runbench DRIVE CATALOGUE FOLDER", count, arguments, run);
}
