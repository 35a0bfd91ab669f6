#include "tests/jet/filecheck.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>

namespace jet {

namespace {

struct Layout {
    uint32_t pageSize, slotCount, slots;
    uint32_t rowCount, varEver, columns, logical, physical, owned, columnsAt, indexCounter;
    uint32_t column, index, logicalIndex;
    uint32_t colNumber, colVar, colFlags, colOffset, colLength;
    bool wide;
};

constexpr Layout kJet3{2048, 8,  10, 12, 23, 25, 27, 31, 35, 43,
                       8,    18, 39, 20, 1,  3,  13, 14, 16, false};
constexpr Layout kJet4{4096, 12, 14, 16, 43, 45, 47, 51, 55, 63,
                       12,   25, 52, 28, 5,  7,  15, 21, 23, true};

constexpr uint8_t kMemo = 12, kOle = 11;

struct Col {
    std::string name;
    uint8_t type;
    uint32_t number, var, offset;
    bool fixed;
    uint32_t owned = 0, withRoom = 0;
};

struct Definition {
    uint32_t page = 0, rowCount = 0, owned = 0, withRoom = 0;
    std::vector<uint32_t> pages;
    std::vector<Col> columns;
    std::vector<uint32_t> indexMaps;
};

class Checker {
  public:
    explicit Checker(const std::vector<uint8_t>& file)
        : file_(file), at_(file[0x14] == 0 ? kJet3 : kJet4) {}

    std::vector<std::string> run(std::string_view table) {
        if (file_.size() % at_.pageSize != 0) report("the size is no whole number of pages");
        free_ = pagesOfMap(1 << 8, true);
        bool found = false;
        const Definition catalog = readDefinition(2);
        claimTable(catalog);
        for (const uint32_t row : rowsOf(catalog)) {
            const std::string type = fixedCell(catalog, row, "Type", 2);
            const std::string id = fixedCell(catalog, row, "Id", 4);
            if (type != std::string("\1\0", 2)) continue;
            const uint32_t page = number(id) & 0xFFFFFF;
            if (page == 2) continue;
            const Definition definition = readDefinition(page);
            claimTable(definition);
            if (lower(textCell(catalog, row, "Name")) != lower(std::string(table))) continue;
            found = true;
            checkTable(definition);
        }
        if (!found) report("the table is missing");
        return findings_;
    }

  private:
    void report(const std::string& finding) { findings_.push_back(finding); }

    uint32_t get(uint64_t offset, int bytes) const {
        uint32_t value = 0;
        for (int i = bytes - 1; i >= 0; --i)
            value = value << 8 | file_.at(offset + static_cast<uint64_t>(i));
        return value;
    }
    static uint32_t number(const std::string& bytes) {
        uint32_t value = 0;
        for (size_t i = bytes.size(); i > 0; --i)
            value = value << 8 | static_cast<uint8_t>(bytes[i - 1]);
        return value;
    }
    static std::string lower(std::string text) {
        for (char& c : text)
            if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
        return text;
    }
    uint64_t base(uint32_t page) const { return uint64_t{page} * at_.pageSize; }
    uint32_t pageCount() const { return static_cast<uint32_t>(file_.size() / at_.pageSize); }

    uint32_t slotCount(uint32_t page) const { return get(base(page) + at_.slotCount, 2); }
    uint32_t entry(uint32_t page, uint32_t slot) const {
        return get(base(page) + at_.slots + 2 * slot, 2);
    }
    uint32_t start(uint32_t pointer) const { return entry(pointer >> 8, pointer & 255) & 0x1FFF; }
    uint32_t end(uint32_t pointer) const {
        return (pointer & 255) == 0 ? at_.pageSize : start(pointer - 1);
    }
    // The row's bytes, pointers followed.
    std::string bytes(uint32_t pointer) const {
        if ((entry(pointer >> 8, pointer & 255) & 0xC000) == 0x4000)
            return bytes(get(base(pointer >> 8) + start(pointer), 4));
        const uint64_t from = base(pointer >> 8) + start(pointer);
        return {file_.begin() + static_cast<ptrdiff_t>(from),
                file_.begin() + static_cast<ptrdiff_t>(from + end(pointer) - start(pointer))};
    }

    std::set<uint32_t> pagesOfMap(uint32_t pointer, bool global = false) {
        std::set<uint32_t> pages;
        if (pointer == 0) return pages;
        const std::string row = bytes(pointer);
        const auto take = [&](uint32_t first, const std::string& bits) {
            for (uint32_t bit = 0; bit < bits.size() * 8; ++bit) {
                if ((static_cast<uint8_t>(bits[bit / 8]) >> (bit % 8) & 1) == 0) continue;
                if (first + bit < pageCount())
                    pages.insert(first + bit);
                else if (!global)
                    report("a map names page " + std::to_string(first + bit) + " past the end");
            }
        };
        if (row.at(0) == 0) {
            take(number(row.substr(1, 4)), row.substr(5));
            return pages;
        }
        for (uint32_t k = 0; 1 + 4 * k + 4 <= row.size(); ++k) {
            const uint32_t mapPage = number(row.substr(1 + 4 * k, 4));
            if (mapPage == 0) continue;
            if (mapPages_.insert({pointer, k}).second) claim(mapPage, "map page");
            if (get(base(mapPage), 2) != 0x0105) report("a map page is of another type");
            take(k * (at_.pageSize - 4) * 8,
                 {file_.begin() + static_cast<ptrdiff_t>(base(mapPage) + 4),
                  file_.begin() + static_cast<ptrdiff_t>(base(mapPage) + at_.pageSize)});
        }
        return pages;
    }

    void claim(uint32_t page, const std::string& use) {
        if (!claimed_.emplace(page, use).second)
            report("page " + std::to_string(page) + " is a " + use + " and a " + claimed_[page]);
        if (free_.contains(page))
            report("page " + std::to_string(page) + " is a " + use + " and free");
    }

    Definition readDefinition(uint32_t page) {
        Definition definition;
        definition.page = page;
        std::vector<uint8_t> joined;
        for (uint32_t next = page; next != 0; next = get(base(next) + 4, 4)) {
            definition.pages.push_back(next);
            const auto from = file_.begin() + static_cast<ptrdiff_t>(base(next));
            joined.insert(joined.end(), from + (joined.empty() ? 0 : 8), from + at_.pageSize);
        }
        const auto take = [&joined](uint64_t offset, int bytes) {
            uint32_t value = 0;
            for (int i = bytes - 1; i >= 0; --i)
                value = value << 8 | joined.at(offset + static_cast<uint64_t>(i));
            return value;
        };
        definition.rowCount = take(at_.rowCount, 4);
        definition.owned = take(at_.owned, 4);
        definition.withRoom = take(at_.owned + 4, 4);
        const uint32_t physical = take(at_.physical, 4);
        uint64_t at = at_.columnsAt + uint64_t{physical} * at_.indexCounter;
        for (uint32_t i = 0; i < take(at_.columns, 2); ++i, at += at_.column)
            definition.columns.push_back({"", joined.at(at), take(at + at_.colNumber, 2),
                                          take(at + at_.colVar, 2), take(at + at_.colOffset, 2),
                                          (joined.at(at + at_.colFlags) & 1) != 0});
        for (Col& column : definition.columns) {
            const uint32_t length = take(at, at_.wide ? 2 : 1);
            at += at_.wide ? 2 : 1;
            for (uint32_t i = 0; i < length; i += at_.wide ? 2 : 1)
                column.name += static_cast<char>(joined.at(at + i));
            at += length;
        }
        for (uint32_t i = 0; i < physical; ++i, at += at_.index)
            definition.indexMaps.push_back(take(at + (at_.wide ? 4 : 0) + 30, 4));
        const uint32_t logical = take(at_.logical, 4);
        at += uint64_t{logical} * at_.logicalIndex;
        for (uint32_t i = 0; i < logical; ++i)
            at += take(at, at_.wide ? 2 : 1) + (at_.wide ? 2u : 1u);
        for (; take(at, 2) != 0xFFFF; at += 10)
            for (Col& column : definition.columns)
                if (column.number == take(at, 2)) {
                    column.owned = take(at + 2, 4);
                    column.withRoom = take(at + 6, 4);
                }
        return definition;
    }

    std::set<uint32_t> claimMaps(uint32_t owned, uint32_t withRoom, const std::string& use) {
        const std::set<uint32_t> pages = pagesOfMap(owned);
        for (const uint32_t page : pages)
            claim(page, use);
        for (const uint32_t page : pagesOfMap(withRoom))
            if (!pages.contains(page))
                report("page " + std::to_string(page) + " has room but is not owned");
        return pages;
    }

    void claimTable(const Definition& definition) {
        const std::string name = "page of definition " + std::to_string(definition.page);
        for (const uint32_t page : definition.pages)
            claim(page, "definition " + name);
        for (const uint32_t page : claimMaps(definition.owned, definition.withRoom, "row " + name))
            checkDataPage(page, definition.page);
        for (const Col& column : definition.columns)
            if (column.owned != 0)
                for (const uint32_t page :
                     claimMaps(column.owned, column.withRoom, "long-value " + name))
                    checkDataPage(page, 0x4C41564C);
        for (const uint32_t map : definition.indexMaps)
            claimMaps(map, 0, "index " + name);
    }

    void checkDataPage(uint32_t page, uint32_t owner) {
        const std::string name = "page " + std::to_string(page);
        if (get(base(page), 2) != 0x0101) report(name + " is no data page");
        if (get(base(page) + 4, 4) != owner) report(name + " has another owner");
        const uint32_t count = slotCount(page);
        uint32_t lowest = at_.pageSize;
        for (uint32_t slot = 0; slot < count; ++slot) {
            const uint32_t from = start(page << 8 | slot);
            if (from > lowest) report(name + " has rows out of order");
            lowest = from;
        }
        if (lowest < at_.slots + 2 * count) {
            report(name + " has rows in its slot table");
        } else if (get(base(page) + 2, 2) != lowest - at_.slots - 2 * count) {
            report(name + " tells its free bytes wrong");
        }
        if (count > 255) report(name + " has too many slots");
    }

    std::vector<uint32_t> rowsOf(const Definition& definition) {
        std::vector<uint32_t> rows;
        for (const uint32_t page : pagesOfMap(definition.owned))
            for (uint32_t slot = 0; slot < slotCount(page); ++slot)
                if ((entry(page, slot) & 0x8000) == 0) rows.push_back(page << 8 | slot);
        return rows;
    }

    bool isSet(const std::string& row, uint32_t column) const {
        const uint32_t count = number(row.substr(0, at_.wide ? 2 : 1));
        if (column >= count) return false;
        const size_t mask = row.size() - (count + 7) / 8;
        return (static_cast<uint8_t>(row.at(mask + column / 8)) >> (column % 8) & 1) != 0;
    }

    std::string fixedCell(const Definition& definition, uint32_t pointer, const std::string& name,
                          uint32_t length) const {
        const std::string row = bytes(pointer);
        for (const Col& column : definition.columns)
            if (column.name == name) return row.substr((at_.wide ? 2 : 1) + column.offset, length);
        return {};
    }

    std::string variableCell(const std::string& row, uint32_t index) const {
        const uint32_t count = number(row.substr(0, at_.wide ? 2 : 1));
        const size_t tail = row.size() - (count + 7) / 8;
        if (at_.wide) {
            const auto offset = [&](uint32_t i) {
                return number(row.substr(tail - 4 - 2 * size_t{i}, 2));
            };
            return row.substr(offset(index), offset(index + 1) - offset(index));
        }
        const size_t jumps = (row.size() - 1) / 256;
        const auto offset = [&](uint32_t i) {
            uint32_t value = static_cast<uint8_t>(row.at(tail - 2 - jumps - i));
            for (size_t jump = 0; jump < jumps; ++jump)
                if (static_cast<uint8_t>(row.at(tail - 2 - jump)) <= i) value += 256;
            return value;
        };
        return row.substr(offset(index), offset(index + 1) - offset(index));
    }

    std::string textCell(const Definition& definition, uint32_t pointer, const std::string& name) {
        for (const Col& column : definition.columns) {
            if (column.name != name) continue;
            const std::string cell = variableCell(bytes(pointer), column.var);
            if (!at_.wide) return cell;
            if (cell.starts_with("\xFF\xFE")) return cell.substr(2);
            std::string text;
            for (size_t i = 0; i < cell.size(); i += 2)
                text += cell[i];
            return text;
        }
        return {};
    }

    void checkTable(const Definition& definition) {
        const std::vector<uint32_t> rows = rowsOf(definition);
        if (rows.size() != definition.rowCount)
            report("the row count is " + std::to_string(definition.rowCount) + " for " +
                   std::to_string(rows.size()) + " rows");
        std::set<uint32_t> named;
        for (const Col& column : definition.columns) {
            if (column.type != kMemo && column.type != kOle) continue;
            const std::set<uint32_t> pages = pagesOfMap(column.owned);
            for (const uint32_t row : rows)
                nameValue(bytes(row), column, pages, named);
            for (const uint32_t page : pages)
                for (uint32_t slot = 0; slot < slotCount(page); ++slot)
                    if ((entry(page, slot) & 0xC000) != 0xC000 && !named.contains(page << 8 | slot))
                        report("a long value on page " + std::to_string(page) + " is lost");
        }
    }

    void nameValue(const std::string& row, const Col& column, const std::set<uint32_t>& pages,
                   std::set<uint32_t>& named) {
        if (!isSet(row, column.number)) return;
        const std::string cell = variableCell(row, column.var);
        const uint32_t head = number(cell.substr(0, 4));
        if ((head & 0x80000000) != 0 || (head & 0x3FFFFFFF) == 0) return;
        uint32_t left = head & 0x3FFFFFFF;
        for (uint32_t at = number(cell.substr(4, 4)); left > 0;) {
            if (!pages.contains(at >> 8) || (at & 255) >= slotCount(at >> 8) ||
                (entry(at >> 8, at & 255) & 0xC000) == 0xC000) {
                report("a row names a long value that is not there");
                return;
            }
            if (!named.insert(at).second) report("two rows name one long value");
            const std::string piece = bytes(at);
            const bool chain = (head & 0x40000000) == 0;
            const auto length = static_cast<uint32_t>(piece.size()) - (chain ? 4 : 0);
            left -= std::min(left, length);
            if (!chain) {
                if (left > 0) report("a long value is too short");
                return;
            }
            at = number(piece.substr(0, 4));
        }
    }

    const std::vector<uint8_t>& file_;
    const Layout& at_;
    std::set<uint32_t> free_;
    std::map<uint32_t, std::string> claimed_;
    std::set<std::pair<uint32_t, uint32_t>> mapPages_;  // claimed already, by map and place in it
    std::vector<std::string> findings_;
};

}  // namespace

std::vector<std::string> checkFile(const std::vector<uint8_t>& file, std::string_view table) {
    try {
        return Checker(file).run(table);
    } catch (const std::exception& error) {
        return {std::string("the file cannot be followed: ") + error.what()};
    }
}

}  // namespace jet
