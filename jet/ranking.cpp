#include "jet/ranking.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "jet/columnreader.h"
#include "jet/textsort.h"

namespace jet {
namespace {

// A value as a number of the same order.
struct Entry {
    uint64_t key;
    RowId id;
    uint32_t row;

    bool operator<(const Entry& other) const {
        return key != other.key ? key < other.key : id < other.id;
    }
};

void sortByKey(std::vector<uint32_t>& rows, std::span<const RowId> ids, auto&& keyOf) {
    std::vector<Entry> entries;
    entries.reserve(rows.size());
    for (const uint32_t row : rows)
        entries.push_back({keyOf(row), ids[row], row});
    std::ranges::sort(entries, std::less<>());
    std::ranges::transform(entries, rows.begin(), &Entry::row);
}

}  // namespace

void sortByValue(std::vector<uint32_t>& rows, const CachedColumn& column,
                 std::span<const RowId> ids) {
    if (const TextValues* values = column.texts()) {
        sortByText(rows, values->texts, column.order(), ids);
    } else if (const DictionaryValues* dictionary = column.dictionary()) {
        const std::vector<uint32_t> ranks = dictionary->dictionary.ranks();
        sortByKey(rows, ids, [&](uint32_t row) { return uint64_t{ranks[dictionary->codes[row]]}; });
    } else {
        sortByKey(rows, ids, [&](uint32_t row) {
            const double number = (*column.numbers())[row];
            return std::isnan(number) ? uint64_t{0} : orderedBits(number);
        });
    }
}

void Ranking::update(const CachedColumn& column, std::span<const RowId> ids) {
    const size_t known = rows_.size();
    if (known == column.count()) return;
    std::vector<uint32_t> added(column.count() - known);
    std::iota(added.begin(), added.end(), static_cast<uint32_t>(known));
    if (added.size() > known / 2) {
        added.resize(column.count());
        std::iota(added.begin(), added.end(), 0);
        rows_.clear();
    }
    sortByValue(added, column, ids);
    if (rows_.empty()) {
        rows_ = std::move(added);
    } else {
        insert(added, column, ids);
    }
    places_.resize(rows_.size());
    for (size_t place = 0; place < rows_.size(); ++place)
        places_[rows_[place]] = static_cast<uint32_t>(place);
}

// Each added row is looked for its place by halving, and all are moved there in one pass.
void Ranking::insert(std::span<const uint32_t> added, const CachedColumn& column,
                     std::span<const RowId> ids) {
    const auto before = [&](uint32_t a, uint32_t b) {
        const int difference = column.compare(a, b);
        return difference != 0 ? difference < 0 : ids[a] < ids[b];
    };
    std::vector<uint32_t> all;
    all.reserve(rows_.size() + added.size());
    auto from = rows_.begin();
    for (const uint32_t row : added) {
        const auto place = std::lower_bound(from, rows_.end(), row, before);
        all.insert(all.end(), from, place);
        all.push_back(row);
        from = place;
    }
    all.insert(all.end(), from, rows_.end());
    rows_ = std::move(all);
}

}  // namespace jet
