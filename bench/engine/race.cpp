#include "bench/engine/race.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "bench/engine/measure.h"
#include "bench/engine/sqlitecontender.h"

namespace bench {
namespace {

// Each task is repeated up to kMostRounds times, but no more than kFewestRounds once it has taken
// kPatience seconds in all.
constexpr size_t kFewestRounds = 5;
constexpr size_t kMostRounds = 21;
constexpr double kPatience = 10;

// Without an index each look-up reads the whole table: fewer must do.
constexpr size_t kSlowLookUps = 20;

void require(bool condition, const std::string& what) {
    if (!condition) throw std::runtime_error("different answers: " + what);
}

std::vector<int64_t> sorted(std::vector<int64_t> values) {
    std::sort(values.begin(), values.end());
    return values;
}

// The seconds until it is durable.
double transact(Contender& contender, const std::function<void()>& changes) {
    const double seconds = timed([&] {
        contender.begin();
        changes();
        contender.commit();
    });
    contender.idle();
    return seconds;
}

std::vector<LookUp> lookUpsIn(size_t cds, size_t count, bool withSize) {
    std::vector<LookUp> lookUps;
    for (size_t i = 0; lookUps.size() < count; ++i) {
        const std::vector<Row> rows = rowsOfCd(i * 7 % cds);
        for (size_t row = i % 5; row < rows.size() && lookUps.size() < count; row += 5) {
            const bool known = lookUps.size() % 2 == 0;
            Text title = rows[row].nom;
            if (!known) title = text(title.utf8 + " absent");
            lookUps.push_back({.type = rows[row].type,
                               .title = std::move(title),
                               .size = rows[row].taille,
                               .withSize = withSize});
        }
    }
    return lookUps;
}

}  // namespace

Race::Race(const std::string& folder, const std::string& empty, size_t cds, std::string wanted)
    : cds_(cds),
      wanted_(std::move(wanted)),
      machine_(Machine::measured(folder)),
      ours_(std::make_unique<JetContender>(folder, empty)) {
    for (const Indexing indexing : {Indexing::None, Indexing::Columns, Indexing::Search})
        others_.push_back(std::make_unique<SqliteContender>(folder, indexing));
}

void Race::race(const std::string& task, size_t rounds, const Touching& touched, const Task& work) {
    if (!isWanted(task)) return;
    std::vector<Contender*> contenders = {ours_.get()};
    for (const auto& other : others_)
        contenders.push_back(other.get());
    std::vector<Times> times(contenders.size());
    double total = 0;
    for (size_t round = 0; round < rounds && (round < kFewestRounds || total < kPatience);
         ++round) {
        for (size_t i = 0; i < contenders.size(); ++i) {
            const double seconds = work(*contenders[i]);
            times[i].seconds.push_back(seconds);
            total += seconds;
        }
    }
    const double ours = times[0].median();
    std::printf("%-44s %10.3f ms ±%3.0f%% %7.1f", task.c_str(), ours * 1e3, times[0].spread() * 100,
                ours / machine_.secondsFor(touched(Collection::of(cds_, ours_->path()))));
    for (size_t i = 1; i < times.size(); ++i)
        std::printf("  %9.2f ±%3.0f%%", times[i].median() / ours, times[i].spread() * 100);
    std::printf("\n");
    std::fflush(stdout);
}

double Race::fill(Contender& contender) const {
    contender.create();
    double seconds = timed([&] { contender.begin(); });
    for (size_t cd = 0; cd < cds_; ++cd) {
        const std::vector<Row> rows = rowsOfCd(cd);
        seconds += timed([&] { contender.append(rows); });
    }
    seconds += timed([&] {
        contender.commit();
        contender.idle();
    });
    contender.settle();
    return seconds;
}

void Race::reopen(Contender& contender) const {
    contender.close();
    contender.openToCdList();
}

void Race::run() {
    std::printf("%zu rows on %zu CDs\n", cds_ * kRowsOfCd, cds_);
    std::printf(
        "this machine reads %.1f GB/s of memory, any one place of it in %.0f ns; the medium has "
        "what "
        "is written after %.2f ms\n",
        machine_.bytesPerSecond / 1e9, machine_.secondsPerPlace * 1e9,
        machine_.secondsPerFlush * 1e3);
    std::printf("%-44s %19s %7s", "", ours_->name().c_str(), "limits");
    for (const auto& other : others_)
        std::printf("  %15s", other->name().c_str());
    std::printf("\n");

    raceFilling();
    compareCdNames();
    raceOpening();
    raceListings();
    raceSearches();
    raceLookUps("10,000 look-ups by type and title", false);
    raceLookUps("10,000 look-ups by type, title and size", true);
    raceChanges();
    if (wanted_.empty()) reportMemory();
}

void Race::raceFilling() {
    constexpr size_t kManyCds = 1000;
    const std::string task = "append all rows, durably";
    if (!isWanted(task)) {
        fill(*ours_);
        for (const auto& other : others_)
            fill(*other);
    }
    race(task, cds_ < kManyCds ? kFewestRounds : 1, &Collection::appending,
         [&](Contender& contender) { return fill(contender); });
}

void Race::raceOpening() {
    race("open, up to the list of CDs", kMostRounds, &Collection::opening,
         [&](Contender& contender) {
             contender.close();
             return timed([&] { contender.openToCdList(); });
         });
}

void Race::raceListings() {
    raceFirstListing("all CDs by name, first after opening", {}, &Collection::firstListing);
    raceListing("all CDs by name", {}, &Collection::listing);
    raceListing("all CDs by path", {.order = Order::Path}, &Collection::listing);
    raceListing("all CDs by size", {.order = Order::Size}, &Collection::listing);
    raceListing("one CD by name", {.cd = cdName(cds_ / 2)}, &Collection::listingOfCd);
    raceListing("one CD by path", {.cd = cdName(cds_ / 2), .order = Order::Path},
                &Collection::listingOfCd);
    raceListing("one CD by size", {.cd = cdName(cds_ / 2), .order = Order::Size},
                &Collection::listingOfCd);
}

void Race::raceSearches() {
    raceFirstListing("search for a frequent word, first", {.search = "amour"},
                     &Collection::firstSearch);
    raceListing("search for a frequent word", {.search = "amour"}, &Collection::search);
    raceListing("search for a frequent word, by path", {.search = "amour", .order = Order::Path},
                &Collection::search);
    raceListing("search for a frequent word, by size", {.search = "amour", .order = Order::Size},
                &Collection::search);
    raceListing("search for a frequent word on one CD", {.cd = cdName(cds_ / 2), .search = "amour"},
                &Collection::listingOfCd);
    raceListing("search for a rare text", {.search = "volzipri"}, &Collection::search);
    raceListing("search for two letters", {.search = "zi"}, &Collection::search);
    raceListing("search for what is nowhere", {.search = "xqxq"}, &Collection::search);
}

void Race::raceListing(const std::string& task, const Listing& listing, const Touching& touched) {
    if (!isWanted(task)) return;
    compareAnswers(listing);
    race(task, kMostRounds, touched, [&](Contender& contender) {
        std::vector<std::string> screen;
        return timed([&] { contender.list(listing, screen); });
    });
}

void Race::raceFirstListing(const std::string& task, const Listing& listing,
                            const Touching& touched) {
    race(task, kMostRounds, touched, [&](Contender& contender) {
        reopen(contender);
        std::vector<std::string> screen;
        return timed([&] { contender.list(listing, screen); });
    });
}

void Race::raceChanges() {
    // A CD more than there are, so that deleting it restores the collection.
    const std::vector<Row> rows = rowsOfCd(cds_);
    const std::string name = cdName(cds_);
    const Listing everything;
    std::vector<std::string> screen;
    const auto add = [&](Contender& contender) {
        return transact(contender, [&] { contender.append(rows); });
    };
    const auto remove = [&](Contender& contender) {
        return transact(contender, [&] { contender.deleteCd(name); });
    };
    race("add a CD of 500 rows, durably", kMostRounds, &Collection::changingCd,
         [&](Contender& contender) {
             const double seconds = add(contender);
             remove(contender);
             return seconds;
         });
    race("add ten, each durably, one after the other", kMostRounds, &Collection::addingCds,
         [&](Contender& contender) {
             const double seconds = timed([&] {
                 for (size_t cd = 0; cd < kCdsInARow; ++cd) {
                     contender.begin();
                     contender.append(rows);
                     contender.commit();
                 }
                 contender.idle();
             });
             remove(contender);
             return seconds;
         });
    race("delete one, durably", kMostRounds, &Collection::changingCd, [&](Contender& contender) {
        add(contender);
        return remove(contender);
    });
    race("replace it, durably", kMostRounds, &Collection::replacingCd, [&](Contender& contender) {
        add(contender);
        const double seconds = transact(contender, [&] {
            contender.deleteCd(name);
            contender.append(rows);
        });
        remove(contender);
        return seconds;
    });
    race("all CDs by name, after adding a CD", kMostRounds, &Collection::listing,
         [&](Contender& contender) {
             contender.list(everything, screen);
             add(contender);
             const double seconds = timed([&] { contender.list(everything, screen); });
             remove(contender);
             return seconds;
         });
    if (wanted_.empty()) compareAnswers(everything);
}

void Race::raceLookUps(const std::string& task, bool withSize) {
    if (!isWanted(task)) return;
    const std::vector<LookUp> lookUps = lookUpsIn(cds_, kLookUps, withSize);
    const std::span<const LookUp> few(lookUps.data(), kSlowLookUps);
    const Contender* const slow = others_.front().get();
    const auto lookUp = [&](Contender& contender) {
        const std::span<const LookUp> part = &contender == slow ? few : lookUps;
        size_t found = 0;
        const double seconds = timed([&] { found = contender.lookUp(part); });
        require(found == part.size() / 2, task);
        return seconds * static_cast<double>(kLookUps) / static_cast<double>(part.size());
    };
    race(task + ", first", kFewestRounds, &Collection::firstLookUps, [&](Contender& contender) {
        reopen(contender);
        return lookUp(contender);
    });
    race(task, kMostRounds, &Collection::lookUps, lookUp);
}

void Race::reportMemory() {
    const auto show = [&](Contender& contender) {
        std::vector<std::string> screen;
        contender.close();
        const size_t before = allocatedBytes();
        contender.openToCdList();
        const auto perRow = [&] {
            return static_cast<double>(allocatedBytes() - before) /
                   static_cast<double>(cds_ * kRowsOfCd);
        };
        contender.list({}, screen);
        std::printf("  %-12s %6.1f bytes a row with all CDs listed", contender.name().c_str(),
                    perRow());
        contender.list({.search = "amour"}, screen);
        std::printf(", %6.1f after a search\n", perRow());
        contender.close();
    };
    std::printf("memory, mapped files apart\n");
    show(*ours_);
    for (const auto& other : others_)
        show(*other);
}

void Race::compareAnswers(const Listing& listing) {
    std::vector<std::string> screen;
    const size_t count = ours_->list(listing, screen);
    require(ours_->listedInOrder(listing.order), "order");
    const std::vector<int64_t> answer = ours_->listedSizes();
    require(answer.size() == count, "count");
    for (const auto& other : others_) {
        require(other->list(listing, screen) == count, other->name());
        const std::vector<int64_t> sizes = other->listedSizes();
        if (listing.order == Order::Size) require(sizes == answer, other->name());
        require(sorted(sizes) == sorted(answer), other->name());
    }
}

void Race::compareCdNames() {
    const auto names = [](Contender& contender) {
        contender.close();
        std::vector<std::string> found = contender.openToCdList();
        std::sort(found.begin(), found.end());
        return found;
    };
    const std::vector<std::string> ours = names(*ours_);
    require(ours.size() == cds_, "number of CDs");
    for (const auto& other : others_)
        require(names(*other) == ours, "CDs");
}

}  // namespace bench
