// One column of a table kept in memory, in the form that suits its values: numbers as they are,
// texts as codes of a dictionary while they repeat, else one behind the other. Rows are known by
// their number, from 0 in the order in which they were appended.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "jet/cachelimits.h"
#include "jet/condition.h"
#include "jet/foldedtexts.h"
#include "jet/rowset.h"
#include "jet/table.h"
#include "jet/textdictionary.h"
#include "jet/textindex.h"
#include "jet/textsignature.h"

namespace jet {

// Null is not a number.
using NumberValues = std::vector<double>;

struct DictionaryValues {
    TextDictionary dictionary;
    std::vector<TextDictionary::Code> codes;  // by row
    std::vector<uint32_t> counts;             // by code: its rows
    // The rows of the first `grouped` by code; those of code c stand at starts[c] to starts[c + 1].
    std::vector<uint32_t> rowsByCode;
    std::vector<uint32_t> starts;
    size_t grouped = 0;
};

struct TextValues {
    FoldedTexts texts;
    TextIndex index;
    TextSignature signature;
};

class CachedColumn {
  public:
    // A number, Boolean or text column; all must outlive this.
    CachedColumn(const Column& column, TextFolder& folder, const CacheLimits& limits);

    const Column& column() const { return *column_; }
    size_t count() const {
        if (const DictionaryValues* values = dictionary()) return values->codes.size();
        if (const TextValues* values = texts()) return values->texts.count();
        return numbers()->size();
    }
    size_t bytes() const;

    // Appends the value of a row. False when there is no room for it.
    bool append(const Table& table, RowView row);
    bool appendNull();
    // Appends the values of the same column for the rows that follow. False when there is no room
    // for them.
    bool join(std::span<const CachedColumn* const> parts);
    // The number of rows to come, to spare memory.
    void expect(size_t rows);

    // Negative, 0 or positive; Null before everything.
    int compare(size_t a, size_t b) const;
    // Whether the test of this column is true for the row.
    bool passes(const ColumnTest& test, size_t row) const;
    // The rows among `rows` for which it is true. May take up to `room` bytes to make the next
    // search faster.
    RowSet filter(const ColumnTest& test, const RowSet& rows, size_t room);
    // Those for which it is true among all rows, in ascending order, where it is known already that
    // few can be: a search for a text that a signature tells the places of. Else nothing.
    std::optional<std::vector<uint32_t>> fewRowsPassing(const ColumnTest& test, size_t room);
    // Of a column with a dictionary: for each code, 1 when the test is true for its text.
    std::vector<uint8_t> passingCodes(const ColumnTest& test) const;

    // How many rows `column = wanted` may find; nothing when only looking tells.
    std::optional<size_t> countEqualTo(const HashedText& wanted) const;
    // Those rows, in no particular order. Builds what it needs, and bytesToFind() tells how much
    // memory that takes.
    std::vector<uint32_t> rowsEqualTo(const HashedText& wanted);
    // Where that begins to look (see TextIndex); null when that is not known yet.
    const void* firstPlace(uint64_t hash) const {
        const TextValues* const values = texts();
        return values ? values->index.firstPlace(hash) : nullptr;
    }
    size_t bytesToFind() const;

    const NumberValues* numbers() const { return std::get_if<NumberValues>(&values_); }
    const DictionaryValues* dictionary() const { return std::get_if<DictionaryValues>(&values_); }
    const TextValues* texts() const { return std::get_if<TextValues>(&values_); }
    const TextOrder& order() const { return folder_->order(); }

  private:
    bool appendText(const RawText& raw);
    void appendCode(DictionaryValues& values, TextDictionary::Code code);
    bool becomeTexts();
    bool join(const CachedColumn& part);
    bool joinCodes(const DictionaryValues& part);
    RowSet filterByCode(const DictionaryValues& values, const ColumnTest& test,
                        const RowSet& rows) const;
    RowSet filterTexts(TextValues& values, const ColumnTest& test, const RowSet& rows, size_t room);
    void bringSignatureUpToDate(TextValues& values, size_t room) const;
    using Runs = std::vector<TextSignature::Run>;
    static RowSet rowsHolding(std::span<const uint8_t> wanted, const Runs& runs,
                              const TextValues& values, const CacheLimits& limits);
    std::vector<uint32_t> rowsOfCodes(DictionaryValues& values, const HashedText& wanted) const;

    const Column* column_;
    TextFolder* folder_;
    const CacheLimits* limits_;
    std::variant<NumberValues, DictionaryValues, TextValues> values_;
    Bytes scratch_;
    std::vector<uint8_t> folded_;
    std::vector<uint8_t> lastRaw_;  // of a dictionary: the last text as it is stored
    TextCoding lastCoding_ = TextCoding::Utf16;
    TextDictionary::Code lastCode_ = TextDictionary::kNull;
    mutable std::u16string text_;
    mutable std::u16string otherText_;
};

}  // namespace jet
