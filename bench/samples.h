// Made-up music, the same on every machine for the same seed.
#pragma once

#include <cstdint>
#include <random>
#include <string>

namespace bench {

// Whole numbers from a generator whose every bit the language's standard fixes.
class Chance {
  public:
    explicit Chance(uint64_t seed) : source_(seed) {}

    // 0 to limit - 1.
    uint64_t below(uint64_t limit) { return source_() % limit; }
    bool percent(uint64_t share) { return below(100) < share; }

  private:
    std::mt19937_64 source_;
};

// One to `mostWords` words, each begun in upper case; some hold accents.
std::string title(Chance& chance, uint64_t mostWords);
std::string artist(Chance& chance);

}  // namespace bench
