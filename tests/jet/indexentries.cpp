#include "tests/jet/indexentries.h"

#include "jet/bytes.h"

namespace jet {
namespace {

constexpr uint8_t kNodePage = 3;
constexpr uint16_t kNoColumn = 0xFFFF;
constexpr size_t kColumnsPerIndex = 10;
constexpr size_t kPageHeader = 8;

// Where things stand on an index page.
struct IndexPage {
    size_t next;
    size_t prefixLength;
    size_t entryEnds;
    size_t entries;
};
constexpr IndexPage kIndexPage3{12, 20, 22, 248};
constexpr IndexPage kIndexPage4{16, 24, 27, 480};

class IndexReader {
  public:
    IndexReader(const Bytes& file, const Format& format)
        : file_(file), format_(format), layout_(format.wide ? kIndexPage4 : kIndexPage3) {}

    std::vector<IndexEntries> read(uint32_t definitionPage) const {
        const Bytes definition = joined(definitionPage);
        const auto& offsets = format_.definition;
        size_t at = offsets.indexCounters +
                    size_t{get32(&definition[offsets.indexCount])} * offsets.indexCounterSize;
        const size_t columns = get16(&definition[offsets.columnCount]);
        at += columns * offsets.columnSize;
        for (size_t i = 0; i < columns; ++i)
            at += format_.wide ? size_t{2} + get16(&definition[at]) : size_t{1} + definition[at];
        std::vector<IndexEntries> indexes;
        for (uint32_t i = 0; i < get32(&definition[offsets.indexCount]); ++i) {
            indexes.push_back(index(&definition[at + (format_.wide ? 4 : 0)]));
            at += offsets.indexSize;
        }
        return indexes;
    }

  private:
    const uint8_t* page(uint32_t number) const {
        return file_.data() + size_t{number} * format_.pageSize;
    }

    Bytes joined(uint32_t number) const {
        Bytes all;
        for (; number != 0; number = get32(page(number) + 4)) {
            const size_t skip = all.empty() ? 0 : kPageHeader;
            all.insert(all.end(), page(number) + skip, page(number) + format_.pageSize);
        }
        return all;
    }

    IndexEntries index(const uint8_t* description) const {
        IndexEntries index;
        for (size_t i = 0; i < kColumnsPerIndex; ++i) {
            const uint8_t* column = description + 3 * i;
            if (get16(column) != kNoColumn)
                index.columns.push_back({get16(column), column[2] == 1});
        }
        uint32_t number = get32(description + 3 * kColumnsPerIndex + 4);
        while (page(number)[0] == kNodePage) {
            const Bytes first = rawEntries(number).front();
            number = get32be(&first[first.size() - 4]);
        }
        for (; number != 0; number = get32(page(number) + layout_.next)) {
            for (const Bytes& raw : rawEntries(number)) {
                const uint32_t row = get32be(&raw[raw.size() - 4]);
                index.entries.push_back({Bytes(raw.begin(), raw.end() - 4), RowId{row}});
            }
        }
        return index;
    }

    std::vector<Bytes> rawEntries(uint32_t number) const {
        const uint8_t* const bytes = page(number);
        const size_t prefixLength = get16(bytes + layout_.prefixLength);
        std::vector<Bytes> entries;
        size_t start = 0;
        for (size_t end = 1; end < format_.pageSize - layout_.entries; ++end) {
            if ((bytes[layout_.entryEnds + end / 8] >> (end % 8) & 1) == 0) continue;
            Bytes entry;
            if (!entries.empty())
                entry.assign(entries.front().begin(),
                             entries.front().begin() + static_cast<std::ptrdiff_t>(prefixLength));
            entry.insert(entry.end(), bytes + layout_.entries + start,
                         bytes + layout_.entries + end);
            entries.push_back(std::move(entry));
            start = end;
        }
        return entries;
    }

    static uint32_t get32be(const uint8_t* bytes) {
        return uint32_t{bytes[0]} << 24 | uint32_t{bytes[1]} << 16 | uint32_t{bytes[2]} << 8 |
               bytes[3];
    }

    const Bytes& file_;
    const Format& format_;
    const IndexPage layout_;
};

}  // namespace

std::vector<IndexEntries> readIndexes(const Bytes& file, const Format& format,
                                      uint32_t definitionPage) {
    return IndexReader(file, format).read(definitionPage);
}

}  // namespace jet
