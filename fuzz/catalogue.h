// What the fuzzers do with a catalogue.
#pragma once

#include "tests/fakes/faultyfilestore.h"

namespace fuzz {

inline constexpr std::u16string_view kPath = u"C:\\Brivantole.mdb";

// The shipped catalogue with `count` tracks, whose memos lie in their rows, out of them, and on
// several pages.
fakes::FileBytes catalogueOf(int count);

// Checks, reads and changes the table ListDonnees of a file. Ends in values or errors, and leaves a
// sound file sound: aborts when it does not.
void exercise(const fakes::FileBytes& file);

}  // namespace fuzz
