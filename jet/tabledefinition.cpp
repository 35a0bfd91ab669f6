#include "jet/tabledefinition.h"

#include <algorithm>
#include <span>

#include "base/codepage.h"
#include "base/text.h"
#include "jet/bytes.h"
#include "jet/fault.h"
#include "jet/pager.h"

namespace jet {

namespace {

constexpr uint32_t kPageHeader = 8;
constexpr uint32_t kNextPage = 4;
constexpr uint32_t kTotalLength = 8;
constexpr uint8_t kFlagFixed = 0x01;
constexpr uint8_t kFlagAutoNumber = 0x04;
constexpr uint8_t kExtendedCompressed = 0x01;
constexpr uint8_t kIgnoresNulls = 2;  // flag of an index
constexpr uint16_t kEndOfLongColumns = 0xFFFF;
constexpr size_t kLongColumnSize = 10;
constexpr uint32_t kMaxColumns = 255;

[[noreturn]] void damagedDefinition(uint32_t page) {
    throwDamaged(u"la définition d'une table est illisible", page);
}

// The definition's pages put together: the first whole, the others without their headers. Their
// numbers are appended to `numbers`.
std::vector<uint8_t> joinPages(const Pager& pager, uint32_t first, std::vector<uint32_t>& numbers) {
    const uint32_t pageSize = pager.format().pageSize;
    std::vector<uint8_t> joined;
    // A definition on page 0, the file's header, is refused like any page of another type.
    uint32_t number = first;
    do {
        const uint8_t* page = pager.page(number);
        const bool bitesItsTail =
            std::find(numbers.begin(), numbers.end(), number) != numbers.end();
        if (page[0] != page::kTypeDefinition || bitesItsTail) damagedDefinition(number);
        numbers.push_back(number);
        joined.insert(joined.end(), joined.empty() ? page : page + kPageHeader, page + pageSize);
        number = get32(page + kNextPage);
    } while (number != 0);
    const uint32_t length = get32(joined.data() + kTotalLength);
    if (length > joined.size()) damagedDefinition(first);
    joined.resize(length);
    return joined;
}

// Reads on and on, checking that there is something left.
class Reader {
  public:
    Reader(const std::vector<uint8_t>& bytes, uint32_t page) : rest_(bytes), page_(page) {}

    std::span<const uint8_t> take(size_t length) {
        if (length > rest_.size()) damagedDefinition(page_);
        const std::span<const uint8_t> taken = rest_.first(length);
        rest_ = rest_.subspan(length);
        return taken;
    }

    std::u16string takeName(bool wide) {
        if (!wide) {
            const std::span<const uint8_t> bytes = take(take(1)[0]);
            return base::CodePage::windows1252().decode(
                std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
        }
        const std::span<const uint8_t> bytes = take(get16(take(2).data()));
        std::u16string name(bytes.size() / 2, u'\0');
        std::memcpy(name.data(), bytes.data(), name.size() * 2);
        return name;
    }

  private:
    std::span<const uint8_t> rest_;
    uint32_t page_;
};

Column readColumn(const Format& format, const uint8_t* bytes) {
    Column column;
    column.type = ColumnType{bytes[0]};
    column.number = get16(bytes + format.column.number);
    column.variableIndex = get16(bytes + format.column.variableIndex);
    column.fixedOffset = get16(bytes + format.column.fixedOffset);
    column.length = get16(bytes + format.column.length);
    const uint8_t flags = bytes[format.column.flags];
    column.fixed = (flags & kFlagFixed) != 0;
    column.autoNumber = (flags & kFlagAutoNumber) != 0;
    column.compressed = format.column.extendedFlags != 0 &&
                        (bytes[format.column.extendedFlags] & kExtendedCompressed) != 0;
    column.scale = bytes[format.column.scale];
    if (const uint32_t size = fixedSize(column.type)) column.length = static_cast<uint16_t>(size);
    return column;
}

}  // namespace

bool isKnown(ColumnType type) {
    switch (type) {
        case ColumnType::Boolean:
        case ColumnType::Byte:
        case ColumnType::Integer:
        case ColumnType::Long:
        case ColumnType::Currency:
        case ColumnType::Single:
        case ColumnType::Double:
        case ColumnType::Date:
        case ColumnType::Binary:
        case ColumnType::Text:
        case ColumnType::Ole:
        case ColumnType::Memo:
        case ColumnType::Guid:
        case ColumnType::Decimal:
            return true;
    }
    return false;
}

uint32_t fixedSize(ColumnType type) {
    switch (type) {
        case ColumnType::Byte:
            return 1;
        case ColumnType::Integer:
            return 2;
        case ColumnType::Long:
        case ColumnType::Single:
            return 4;
        case ColumnType::Currency:
        case ColumnType::Double:
        case ColumnType::Date:
            return 8;
        case ColumnType::Guid:
            return 16;
        case ColumnType::Decimal:
            return 17;
        case ColumnType::Boolean:
        case ColumnType::Binary:
        case ColumnType::Text:
        case ColumnType::Ole:
        case ColumnType::Memo:
            break;
    }
    return 0;
}

bool Column::isNumber() const {
    return (type >= ColumnType::Byte && type <= ColumnType::Date) || type == ColumnType::Decimal;
}

const Column* TableDefinition::find(std::u16string_view columnName) const {
    // Most ask for the name as it is.
    for (const Column& column : columns)
        if (column.name == columnName) return &column;
    const auto sameCharacter = [](char16_t a, char16_t b) {
        return base::upper(a) == base::upper(b);
    };
    const auto found = std::ranges::find_if(columns, [&](const Column& column) {
        return std::ranges::equal(column.name, columnName, sameCharacter);
    });
    return found == columns.end() ? nullptr : &*found;
}

TableDefinition readTableDefinition(const Pager& pager, uint32_t page, std::u16string_view name) {
    const Format& format = pager.format();
    const Format::Definition& at = format.definition;
    TableDefinition definition;
    const std::vector<uint8_t> bytes = joinPages(pager, page, definition.pages);
    Reader reader(bytes, page);
    const uint8_t* head = reader.take(at.indexCounters).data();

    definition.name = name;
    definition.page = page;
    definition.rowCount = get32(head + at.rowCount);
    definition.lastAutoNumber = get32(head + at.lastAutoNumber);
    definition.columnsEver = get16(head + at.columnsEver);
    definition.variableColumnsEver = get16(head + at.variableColumnsEver);
    definition.indexCount = get32(head + at.indexCount);
    definition.ownedMap = RowId{get32(head + at.ownedMap)};
    definition.freeMap = RowId{get32(head + at.freeMap)};
    const uint32_t columnCount = get16(head + at.columnCount);
    const uint32_t logicalIndexCount = get32(head + at.logicalIndexCount);
    if (columnCount > kMaxColumns || definition.columnsEver > kMaxColumns ||
        definition.indexCount > bytes.size() || logicalIndexCount > bytes.size())
        damagedDefinition(page);

    reader.take(size_t{definition.indexCount} * at.indexCounterSize);
    for (uint32_t i = 0; i < columnCount; ++i) {
        definition.columns.push_back(readColumn(format, reader.take(at.columnSize).data()));
        const Column& column = definition.columns.back();
        if (column.number >= definition.columnsEver ||
            (!column.fixed && column.variableIndex >= definition.variableColumnsEver))
            damagedDefinition(page);
    }
    for (Column& column : definition.columns)
        column.name = reader.takeName(format.wide);
    for (uint32_t i = 0; i < definition.indexCount; ++i) {
        const uint8_t* index = reader.take(at.indexSize).data();
        definition.indexes.push_back({.ownedMap = RowId{get32(index + at.indexOwnedMap)},
                                      .root = get32(index + at.indexRoot),
                                      .ignoresNulls = (index[at.indexFlags] & kIgnoresNulls) != 0});
    }
    reader.take(size_t{logicalIndexCount} * at.logicalIndexSize);
    for (uint32_t i = 0; i < logicalIndexCount; ++i)
        reader.takeName(format.wide);
    for (;;) {
        const uint16_t number = get16(reader.take(2).data());
        if (number == kEndOfLongColumns) break;
        const uint8_t* maps = reader.take(kLongColumnSize - 2).data();
        for (Column& column : definition.columns) {
            if (column.number != number) continue;
            column.ownedMap = RowId{get32(maps)};
            column.freeMap = RowId{get32(maps + 4)};
        }
    }
    std::sort(definition.columns.begin(), definition.columns.end(),
              [](const Column& a, const Column& b) { return a.number < b.number; });
    return definition;
}

}  // namespace jet
