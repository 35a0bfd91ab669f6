#include "jet/rowsort.h"

#include <algorithm>
#include <numeric>

#include "jet/columnreader.h"
#include "jet/textsort.h"

namespace jet {
namespace {

// The texts of so many rows, each of no more stored bytes than that, are kept together in memory.
constexpr size_t kMostTexts = 1024;
constexpr size_t kLongestText = 4096;

// A row on its way through a sort: most comparisons end at the prefix of its first column.
struct Entry {
    uint64_t prefix;
    RowId row;
};

class RowOrder {
  public:
    RowOrder(std::span<const SortColumn> order, const Table& table, const TextOrder& textOrder)
        : order_(order), table_(table), reader_(table, textOrder) {}

    uint64_t prefix(RowView row) {
        const SortColumn& first = order_.front();
        const uint64_t prefix = reader_.sortPrefix(row, *first.column);
        return first.descending ? ~prefix : prefix;
    }

    bool before(const Entry& a, const Entry& b) {
        if (a.prefix != b.prefix) return a.prefix < b.prefix;
        const RowView left = table_.row(a.row);
        const RowView right = table_.row(b.row);
        for (const SortColumn& sort : order_) {
            const int difference = reader_.compare(left, right, *sort.column);
            if (difference != 0) return (difference < 0) != sort.descending;
        }
        return false;
    }

  private:
    std::span<const SortColumn> order_;
    const Table& table_;
    ColumnReader reader_;
};

// Reads each text once, not for each comparison: paths agree for long, and go through many. False,
// and nothing done, when there is a long text among them.
bool sortByTexts(std::vector<RowId>& rows, const Column& column, const Table& table,
                 const TextOrder& textOrder) {
    TextFolder folder(textOrder);
    FoldedTexts texts;
    RawText raw;
    Bytes scratch;
    Bytes folded;
    for (const RowId row : rows) {
        if (texts.count() == 1) texts.reserve(rows.size());
        if (!table.rawText(table.row(row), column, raw, scratch)) {
            texts.appendNull();
            continue;
        }
        if (raw.length > kLongestText) return false;
        folded.clear();
        folder.fold(raw, folded);
        texts.append(folded);
    }
    std::vector<uint32_t> places(rows.size());
    std::iota(places.begin(), places.end(), 0);
    sortByText(places, texts, textOrder, rows);
    const std::vector<RowId> unsorted = rows;
    std::ranges::transform(places, rows.begin(),
                           [&unsorted](uint32_t place) { return unsorted[place]; });
    return true;
}

}  // namespace

void sortRows(std::vector<RowId>& rows, std::span<const SortColumn> order, const Table& table,
              const TextOrder& textOrder) {
    if (order.empty() || rows.size() < 2) return;
    const SortColumn& first = order.front();
    const bool byTextAlone = order.size() == 1 && !first.descending && first.column->isText();
    if (byTextAlone && rows.size() <= kMostTexts &&
        sortByTexts(rows, *first.column, table, textOrder)) {
        return;
    }
    RowOrder rowOrder(order, table, textOrder);
    std::vector<Entry> entries;
    entries.reserve(rows.size());
    for (const RowId row : rows)
        entries.push_back({rowOrder.prefix(table.row(row)), row});
    std::ranges::stable_sort(
        entries, [&rowOrder](const Entry& a, const Entry& b) { return rowOrder.before(a, b); });
    std::ranges::transform(entries, rows.begin(), &Entry::row);
}

}  // namespace jet
