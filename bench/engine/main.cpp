// enginebench FOLDER CATALOGUE ROWS: the program's engine and SQLite beside each other, with ROWS
// rows in files in FOLDER; CATALOGUE is one without rows. Times are ours, the other columns how
// many times as long the others take.
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "bench/engine/measure.h"
#include "bench/engine/race.h"

int main(int count, char** arguments) {
    if (count != 4) {
        std::fputs("enginebench FOLDER CATALOGUE ROWS\n", stderr);
        return 2;
    }
    try {
        const size_t rows = std::strtoull(arguments[3], nullptr, 10);
        bench::Race(arguments[1], arguments[2], rows / bench::kRowsOfCd).run();
        std::printf("this machine reads memory at %.1f GB/s\n", bench::memoryBandwidth());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "enginebench: %s\n", error.what());
        return 1;
    }
    return 0;
}
