// The contenders against each other in one task after the other, and the table of their times.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "bench/engine/contender.h"
#include "bench/engine/jetcontender.h"
#include "bench/engine/limits.h"

namespace bench {

class Race {
  public:
    // `cds` CDs in the catalogue; files in `folder`; `empty` is a catalogue without rows. Tasks
    // whose name does not hold `wanted` are left out.
    Race(const std::string& folder, const std::string& empty, size_t cds, std::string wanted);

    // Prints a line for each task.
    void run();

  private:
    // Seconds of the task, done by the contender.
    using Task = std::function<double(Contender&)>;
    // What our engine touches for it.
    using Touching = std::function<Touched(const Collection&)>;

    void race(const std::string& task, size_t rounds, const Touching& touched, const Task& work);
    bool isWanted(const std::string& task) const { return task.find(wanted_) != std::string::npos; }
    double fill(Contender& contender) const;
    void reopen(Contender& contender) const;

    void raceFilling();
    void raceOpening();
    void raceListings();
    void raceSearches();
    void raceListing(const std::string& task, const Listing& listing, const Touching& touched);
    void raceFirstListing(const std::string& task, const Listing& listing, const Touching& touched);
    void raceChanges();
    void raceLookUps(const std::string& task, bool withSize);
    void reportMemory();

    // The same rows for all, in the order of the dialect where it is ours.
    void compareAnswers(const Listing& listing);
    void compareCdNames();

    size_t cds_;
    std::string wanted_;
    Machine machine_;
    std::unique_ptr<JetContender> ours_;
    std::vector<std::unique_ptr<Contender>> others_;
};

}  // namespace bench
