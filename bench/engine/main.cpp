// enginebench FOLDER CATALOGUE ROWS [WORDS]: the program's engine and SQLite beside each other,
// with ROWS rows in files in FOLDER; CATALOGUE is one without rows. Times are ours; then how many
// times as long that is as what the task must touch takes this machine at least; the other columns
// how many times as long the others take. With WORDS only the tasks whose name holds them are done.
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "bench/engine/race.h"

int main(int count, char** arguments) {
    if (count != 4 && count != 5) {
        std::fputs("enginebench FOLDER CATALOGUE ROWS [WORDS]\n", stderr);
        return 2;
    }
    try {
        const size_t rows = std::strtoull(arguments[3], nullptr, 10);
        bench::Race(arguments[1], arguments[2], rows / bench::kRowsOfCd,
                    count == 5 ? arguments[4] : "")
            .run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "enginebench: %s\n", error.what());
        return 1;
    }
    return 0;
}
