#include "bench/engine/limits.h"

#include <algorithm>
#include <filesystem>

#include "bench/engine/contender.h"
#include "bench/engine/measure.h"
#include "bench/engine/rows.h"

namespace bench {
namespace {

constexpr double kNumber = 4;          // bytes of a row's number or identity
constexpr double kBehindEachText = 5;  // bytes: a mark, and where it stands

}  // namespace

Machine Machine::measured(const std::string& folder) {
    return {.bytesPerSecond = memoryBandwidth(),
            .secondsPerPlace = memoryLatency(),
            .secondsPerFlush = flushTime(folder)};
}

double Machine::secondsFor(const Touched& touched) const {
    return touched.bytes / bytesPerSecond + touched.places * secondsPerPlace +
           touched.flushes * secondsPerFlush;
}

Collection Collection::of(size_t cds, const std::string& file) {
    constexpr size_t kMostCds = 50;
    const size_t some = std::min(cds, kMostCds);
    Collection collection{.rows = static_cast<double>(cds * kRowsOfCd),
                          .fileBytes = static_cast<double>(std::filesystem::file_size(file))};
    for (size_t cd = 0; cd < some; ++cd) {
        for (const Row& row : rowsOfCd(cd)) {
            collection.titleBytes += static_cast<double>(row.nom.utf8.size()) + kBehindEachText;
            collection.pathBytes += static_cast<double>(row.fichier.utf8.size()) + kBehindEachText;
        }
    }
    const double share = static_cast<double>(cds) / static_cast<double>(some);
    collection.titleBytes *= share;
    collection.pathBytes *= share;
    return collection;
}

Touched Collection::appending() const {
    return {.bytes = 2 * fileBytes, .flushes = 2};
}

Touched Collection::opening() const {
    return {.bytes = fileBytes};
}

Touched Collection::firstListing() const {
    const Touched answer = listing();
    return {.bytes = fileBytes + titleBytes + answer.bytes};
}

Touched Collection::firstSearch() const {
    return {.bytes = fileBytes + search().bytes};
}

Touched Collection::listing() const {
    constexpr double kNumbers = 3;
    return {.bytes = rows * kNumbers * kNumber};
}

Touched Collection::listingOfCd() const {
    return {.bytes = 2 * kNumber * kRowsOfCd, .places = kRowsOfCd};
}

Touched Collection::search() const {
    return {.bytes = titleBytes + pathBytes};
}

Touched Collection::firstLookUps() const {
    return {.bytes = fileBytes + titleBytes, .places = rows};
}

Touched Collection::lookUps() const {
    constexpr double kPlaces = 3;
    return {.places = kPlaces * kLookUps};
}

Touched Collection::changingCd() const {
    return {.bytes = 2 * fileBytes * kRowsOfCd / rows, .flushes = 1};
}

Touched Collection::replacingCd() const {
    return {.bytes = 2 * changingCd().bytes, .flushes = 1};
}

Touched Collection::addingCds() const {
    return {.bytes = kCdsInARow * changingCd().bytes, .flushes = kCdsInARow};
}

}  // namespace bench
