// What each engine must be able to do for the catalogue.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "bench/engine/rows.h"

namespace bench {

enum class Order { Name, Path, Size };

// What the track list shows: all types are shown, as after the program's first start.
struct Listing {
    std::string cd = {};      // empty: all
    std::string search = {};  // empty: none; found in title or path
    Order order = Order::Name;
};

struct LookUp {
    Text type;
    Text title;
    int64_t size = 0;
    bool withSize = false;
};

// How many a run over a new CD does.
constexpr size_t kLookUps = 10'000;

// How many CDs are added without a rest.
constexpr size_t kCdsInARow = 10;

// The first screen of a list.
constexpr size_t kVisibleRows = 40;

class Contender {
  public:
    virtual ~Contender() = default;
    virtual std::string name() const = 0;

    // A new file without rows, opened.
    virtual void create() = 0;
    // From nothing to the names of all CDs, in their order.
    virtual std::vector<std::string> openToCdList() = 0;
    virtual void close() = 0;

    // One durable transaction around any number of appended parts.
    virtual void begin() = 0;
    virtual void append(std::span<const Row> rows) = 0;
    virtual void commit() = 0;
    // Waits for what a commit that is durable leaves to be done in the background.
    virtual void idle() {}
    // What a careful owner does once after much was appended.
    virtual void settle() {}
    // Inside a transaction.
    virtual void deleteCd(const std::string& cd) = 0;

    // Finds the rows in their order, every one ready to be shown, and reads the first screen of
    // titles into `screen`. Gives how many there are.
    virtual size_t list(const Listing& listing, std::vector<std::string>& screen) = 0;
    // The sizes of the rows of the last list, in its order.
    virtual std::vector<int64_t> listedSizes() = 0;
    // How many of them find a row.
    virtual size_t lookUp(std::span<const LookUp> lookUps) = 0;
};

}  // namespace bench
