// How fast a task could be at best on this machine: what the engine has to touch for it, beside
// what the machine was measured to do.
#pragma once

#include <cstddef>
#include <string>

namespace bench {

// What a task touches.
struct Touched {
    double bytes = 0;    // one behind the other
    double places = 0;   // anywhere in memory, each known only once the one before it was read
    double flushes = 0;  // waits until the medium has it
};

// What this machine does, measured.
struct Machine {
    double bytesPerSecond = 0;   // read one behind the other, by one thread
    double secondsPerPlace = 0;  // of more memory than the processor keeps at hand
    double secondsPerFlush = 0;  // of a file in the folder of the race

    // Takes some seconds and a gigabyte of memory. Throws std::runtime_error when there is no file
    // to be made in `folder`.
    static Machine measured(const std::string& folder);

    double secondsFor(const Touched& touched) const;
};

// The sizes of what is raced with, from which follows what a task touches.
struct Collection {
    double rows = 0;
    double fileBytes = 0;
    double titleBytes = 0;  // as kept in memory to be searched, in all; likewise the paths
    double pathBytes = 0;

    // Of `cds` CDs, whose rows are like those of the first ones; `file` has them all.
    static Collection of(size_t cds, const std::string& file);

    // Each page is made in memory and given to the system; one flush at the end, one before it.
    Touched appending() const;
    // Every page is looked at.
    Touched opening() const;
    // The pages once, to bring into memory what the order needs: names and places of all rows.
    Touched firstListing() const;
    // The pages once, for the texts in which is searched.
    Touched firstSearch() const;
    // A whole order: places in it, rows behind them, the answer.
    Touched listing() const;
    // The rows of one CD and their places in the order.
    Touched listingOfCd() const;
    // All titles and paths; what is passed over unread makes a search faster than this.
    Touched search() const;
    // The pages once, and for each title a place in the index.
    Touched firstLookUps() const;
    // For each a place in the index, one where the text begins, one of the text.
    Touched lookUps() const;
    // The pages of a CD's rows, twice: into the journal, which is flushed, then into the file.
    Touched changingCd() const;
    // The same kCdsInARow times.
    Touched addingCds() const;
    // Both the pages of the old rows and those of the new ones.
    Touched replacingCd() const;
};

}  // namespace bench
