#include "jet/cachedcolumn.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "jet/columnreader.h"
#include "jet/parallel.h"
#include "jet/textsearch.h"

namespace jet {
namespace {

using Code = TextDictionary::Code;

// Looking through all texts at once pays when at least one of so many rows is asked about.
constexpr size_t kSparse = 8;
// From so many different texts on, a dictionary must be met by at least twice as many rows: the
// titles of a small catalogue would fit into one, but not repeat.
constexpr size_t kTextsOnTrial = 1024;
// Rows are listed one by one while at most one in so many is to be looked at.
constexpr size_t kWorthListing = 32;
// Rows behind the grouped ones are looked at one by one; when there are more, groups are made anew.
constexpr size_t kMostUngrouped = 4096;

size_t rowsOf(const std::vector<TextSignature::Run>& runs) {
    size_t rows = 0;
    for (const TextSignature::Run& run : runs)
        rows += run.last - run.first;
    return rows;
}

bool comparesContained(const ColumnTest& test) {
    return test.kind == ColumnTest::Kind::Like && !test.pattern->containedBytes().empty();
}

bool asksForContained(const ColumnTest& test) {
    return comparesContained(test) && !test.negated;
}

int sign(double a, double b) {
    return a < b ? -1 : a > b;
}

bool repeats(const TextDictionary& dictionary, size_t rows) {
    const size_t texts = dictionary.codeCount();
    return texts <= kTextsOnTrial || 2 * texts <= rows;
}

void group(DictionaryValues& values) {
    const size_t codes = values.dictionary.codeCount();
    values.starts.assign(codes + 1, 0);
    for (size_t code = 0; code < codes; ++code)
        values.starts[code + 1] = values.starts[code] + values.counts[code];
    std::vector<uint32_t> places(values.starts.begin(), values.starts.end() - 1);
    values.rowsByCode.resize(values.codes.size());
    for (size_t row = 0; row < values.codes.size(); ++row)
        values.rowsByCode[places[values.codes[row]]++] = static_cast<uint32_t>(row);
    values.grouped = values.codes.size();
}

}  // namespace

CachedColumn::CachedColumn(const Column& column, TextFolder& folder, const CacheLimits& limits)
    : column_(&column), folder_(&folder), limits_(&limits) {
    if (column.isText()) {
        values_ =
            DictionaryValues{TextDictionary(order(), limits.dictionaryTexts), {}, {0}, {}, {}, 0};
    }
}

size_t CachedColumn::bytes() const {
    if (const DictionaryValues* values = dictionary()) {
        return values->dictionary.bytes() + values->codes.capacity() * sizeof(Code) +
               (values->counts.capacity() + values->rowsByCode.capacity() +
                values->starts.capacity()) *
                   sizeof(uint32_t);
    }
    if (const TextValues* values = texts())
        return values->texts.bytes() + values->index.bytes() + values->signature.bytes();
    return numbers()->capacity() * sizeof(double);
}

void CachedColumn::expect(size_t rows) {
    if (auto* values = std::get_if<DictionaryValues>(&values_)) values->codes.reserve(rows);
    if (auto* values = std::get_if<TextValues>(&values_)) values->texts.reserve(rows);
    if (auto* values = std::get_if<NumberValues>(&values_)) values->reserve(rows);
}

bool CachedColumn::append(const Table& table, RowView row) {
    if (auto* values = std::get_if<NumberValues>(&values_)) {
        double number = 0;
        const bool set = ColumnReader(table, order()).number(row, *column_, number);
        values->push_back(set ? number : std::numeric_limits<double>::quiet_NaN());
        return true;
    }
    RawText raw;
    return table.rawText(row, *column_, raw, scratch_) ? appendText(raw) : appendNull();
}

bool CachedColumn::appendNull() {
    if (auto* values = std::get_if<NumberValues>(&values_)) {
        values->push_back(std::numeric_limits<double>::quiet_NaN());
        return true;
    }
    if (auto* values = std::get_if<TextValues>(&values_)) return values->texts.appendNull();
    auto& values = std::get<DictionaryValues>(values_);
    values.codes.push_back(TextDictionary::kNull);
    ++values.counts[TextDictionary::kNull];
    return true;
}

bool CachedColumn::join(std::span<const CachedColumn* const> parts) {
    if (parts.empty()) return true;
    if (std::ranges::find(parts, nullptr) != parts.end()) return false;
    size_t rows = count();
    for (const CachedColumn* part : parts)
        rows += part->count();
    expect(rows);
    return std::ranges::all_of(parts, [this](const CachedColumn* part) { return join(*part); });
}

bool CachedColumn::join(const CachedColumn& part) {
    if (auto* values = std::get_if<NumberValues>(&values_)) {
        values->insert(values->end(), part.numbers()->begin(), part.numbers()->end());
        return true;
    }
    if (const DictionaryValues* codes = part.dictionary()) return joinCodes(*codes);
    return (texts() || becomeTexts()) &&
           std::get<TextValues>(values_).texts.append(part.texts()->texts);
}

bool CachedColumn::joinCodes(const DictionaryValues& part) {
    if (auto* values = std::get_if<DictionaryValues>(&values_)) {
        std::vector<Code> ours(part.dictionary.codeCount(), TextDictionary::kNull);
        size_t code = 1;
        for (; code < ours.size(); ++code) {
            const auto known =
                values->dictionary.add(part.dictionary.folded(static_cast<Code>(code)));
            if (!known) break;
            ours[code] = *known;
        }
        const size_t rows = values->codes.size() + part.codes.size();
        if (code == ours.size() && repeats(values->dictionary, rows)) {
            for (const Code theirs : part.codes)
                appendCode(*values, ours[theirs]);
            return true;
        }
        // Each part repeats its texts, but they are not the same ones.
        if (!becomeTexts()) return false;
    }
    FoldedTexts& texts = std::get<TextValues>(values_).texts;
    return std::ranges::all_of(part.codes, [&](Code code) {
        return code == TextDictionary::kNull ? texts.appendNull()
                                             : texts.append(part.dictionary.folded(code));
    });
}

bool CachedColumn::appendText(const RawText& raw) {
    auto* values = std::get_if<DictionaryValues>(&values_);
    const std::span<const uint8_t> bytes(raw.bytes, raw.length);
    // Neighbours are mostly alike: the tracks of one CD, the files of one type.
    if (values && lastCode_ != TextDictionary::kNull && raw.coding == lastCoding_ &&
        std::ranges::equal(bytes, lastRaw_)) {
        appendCode(*values, lastCode_);
        return true;
    }
    folded_.clear();
    folder_->fold(raw, folded_);
    if (values) {
        const std::optional<Code> code = values->dictionary.add(folded_);
        if (code && repeats(values->dictionary, values->codes.size())) {
            appendCode(*values, *code);
            lastRaw_.assign(bytes.begin(), bytes.end());
            lastCoding_ = raw.coding;
            lastCode_ = *code;
            return true;
        }
        if (!becomeTexts()) return false;
    }
    return std::get<TextValues>(values_).texts.append(folded_);
}

void CachedColumn::appendCode(DictionaryValues& values, Code code) {
    values.codes.push_back(code);
    values.counts.resize(values.dictionary.codeCount());
    ++values.counts[code];
}

// The texts do not repeat after all.
bool CachedColumn::becomeTexts() {
    const auto& values = std::get<DictionaryValues>(values_);
    const size_t expected = values.codes.capacity();
    FoldedTexts texts;
    for (const Code code : values.codes) {
        const bool fits = code == TextDictionary::kNull
                              ? texts.appendNull()
                              : texts.append(values.dictionary.folded(code));
        if (!fits) return false;
    }
    texts.reserve(expected);
    values_ = TextValues{std::move(texts), TextIndex(order()), {}};
    return true;
}

int CachedColumn::compare(size_t a, size_t b) const {
    if (const NumberValues* values = numbers()) {
        const double x = (*values)[a];
        const double y = (*values)[b];
        if (std::isnan(x) || std::isnan(y))
            return static_cast<int>(!std::isnan(x)) - static_cast<int>(!std::isnan(y));
        return sign(x, y);
    }
    if (const DictionaryValues* values = dictionary()) {
        const Code x = values->codes[a];
        const Code y = values->codes[b];
        if (x == y) return 0;
        if (x == TextDictionary::kNull || y == TextDictionary::kNull)
            return x == TextDictionary::kNull ? -1 : 1;
        return order().compare(values->dictionary.text(x), values->dictionary.text(y));
    }
    const FoldedTexts& folded = texts()->texts;
    if (folded.isNull(a) || folded.isNull(b))
        return static_cast<int>(folded.isNull(b)) - static_cast<int>(folded.isNull(a));
    if (std::ranges::equal(folded.text(a), folded.text(b))) return 0;
    TextFolder::decode(folded.text(a), text_);
    TextFolder::decode(folded.text(b), otherText_);
    return order().compare(text_, otherText_);
}

bool CachedColumn::passes(const ColumnTest& test, size_t row) const {
    if (const NumberValues* values = numbers()) {
        const double number = (*values)[row];
        return std::isnan(number) ? passesNull(test) : passesNumber(test, number);
    }
    if (const DictionaryValues* values = dictionary()) {
        const Code code = values->codes[row];
        if (code == TextDictionary::kNull) return passesNull(test);
        return passesText(test, values->dictionary.text(code), order());
    }
    const FoldedTexts& folded = texts()->texts;
    if (folded.isNull(row)) return passesNull(test);
    if (comparesContained(test)) {
        const size_t place = findBytes(folded.text(row), test.pattern->containedBytes());
        return (place != kNotFound) != test.negated;
    }
    TextFolder::decode(folded.text(row), text_);
    return passesText(test, text_, order());
}

RowSet CachedColumn::filter(const ColumnTest& test, const RowSet& rows, size_t room) {
    if (const DictionaryValues* values = dictionary()) return filterByCode(*values, test, rows);
    if (auto* values = std::get_if<TextValues>(&values_))
        return filterTexts(*values, test, rows, room);
    return rows.where([&](size_t row) { return passes(test, row); });
}

std::vector<uint8_t> CachedColumn::passingCodes(const ColumnTest& test) const {
    const TextDictionary& texts = dictionary()->dictionary;
    std::vector<uint8_t> passing(texts.codeCount());
    passing[TextDictionary::kNull] = passesNull(test);
    for (size_t code = 1; code < passing.size(); ++code)
        passing[code] = passesText(test, texts.text(static_cast<Code>(code)), order());
    return passing;
}

RowSet CachedColumn::filterByCode(const DictionaryValues& values, const ColumnTest& test,
                                  const RowSet& rows) const {
    const std::vector<uint8_t> passing = passingCodes(test);
    return rows.where([&](size_t row) { return passing[values.codes[row]]; });
}

void CachedColumn::bringSignatureUpToDate(TextValues& values, size_t room) const {
    if (TextSignature::bytesFor(values.texts.count()) <= room + values.signature.bytes())
        values.signature.update(values.texts, *limits_);
}

std::optional<std::vector<uint32_t>> CachedColumn::fewRowsPassing(const ColumnTest& test,
                                                                  size_t room) {
    auto* values = std::get_if<TextValues>(&values_);
    if (!values || values->signature.bytes() == 0 || !asksForContained(test)) return std::nullopt;
    const std::span<const uint8_t> wanted = test.pattern->containedBytes();
    bringSignatureUpToDate(*values, room);
    const Runs runs = values->signature.candidates(wanted, values->texts.count());
    if (rowsOf(runs) > values->texts.count() / kWorthListing) return std::nullopt;
    std::vector<uint32_t> rows;
    for (const TextSignature::Run& run : runs) {
        values->texts.forEachHolding(wanted, run.first, run.last, [&rows](size_t row) {
            rows.push_back(static_cast<uint32_t>(row));
        });
    }
    return rows;
}

RowSet CachedColumn::filterTexts(TextValues& values, const ColumnTest& test, const RowSet& rows,
                                 size_t room) {
    if (!asksForContained(test))
        return rows.whereEach([&](size_t row) { return passes(test, row); });
    const std::span<const uint8_t> wanted = test.pattern->containedBytes();
    const size_t few = rows.limit() / kSparse;
    // A few rows are not worth a signature, but one that is there may spare even those.
    const bool isSigned = values.signature.bytes() != 0;
    if (isSigned) bringSignatureUpToDate(values, room);
    Runs runs = values.signature.candidates(wanted, values.texts.count());
    if (rowsOf(runs) > few && rows.size() < few) {
        return rows.whereEach(
            [&](size_t row) { return findBytes(values.texts.text(row), wanted) != kNotFound; });
    }
    if (!isSigned) {
        bringSignatureUpToDate(values, room);
        runs = values.signature.candidates(wanted, values.texts.count());
    }
    RowSet result = rowsHolding(wanted, runs, values, *limits_);
    result.keepOnly(rows);
    return result;
}

RowSet CachedColumn::rowsHolding(std::span<const uint8_t> wanted, const Runs& runs,
                                 const TextValues& values, const CacheLimits& limits) {
    RowSet result(values.texts.count());
    // No two runs have rows in one word of the result.
    static_assert(TextSignature::kRowsOfBlock % RowSet::kRowsOfWord == 0);
    inParts(runs.size(), limits.partsFor(rowsOf(runs)), [&](size_t, size_t first, size_t last) {
        for (const TextSignature::Run& run : std::span(runs).subspan(first, last - first)) {
            values.texts.forEachHolding(wanted, run.first, run.last,
                                        [&](size_t row) { result.add(row); });
        }
    });
    return result;
}

std::optional<size_t> CachedColumn::countEqualTo(const HashedText& wanted) const {
    const DictionaryValues* values = dictionary();
    if (!values) return std::nullopt;
    size_t count = 0;
    for (const Code code : values->dictionary.codesEqualTo(wanted))
        count += values->counts[code];
    return count;
}

size_t CachedColumn::bytesToFind() const {
    if (const DictionaryValues* values = dictionary())
        return values->rowsByCode.empty() ? values->codes.size() * sizeof(uint32_t) : 0;
    if (const TextValues* values = texts())
        return values->index.bytes() == 0 ? TextIndex::bytesFor(values->texts.count()) : 0;
    return 0;
}

std::vector<uint32_t> CachedColumn::rowsEqualTo(const HashedText& wanted) {
    if (auto* values = std::get_if<DictionaryValues>(&values_)) return rowsOfCodes(*values, wanted);
    auto& values = std::get<TextValues>(values_);
    values.index.update(values.texts, *limits_);
    return values.index.rowsEqualTo(wanted, *folder_, values.texts);
}

std::vector<uint32_t> CachedColumn::rowsOfCodes(DictionaryValues& values,
                                                const HashedText& wanted) const {
    std::vector<uint32_t> rows;
    const std::vector<Code> codes = values.dictionary.codesEqualTo(wanted);
    if (codes.empty()) return rows;
    if (values.codes.size() - values.grouped > kMostUngrouped || values.grouped == 0) group(values);
    for (const Code code : codes) {
        if (size_t{code} + 1 >= values.starts.size()) continue;
        rows.insert(rows.end(), values.rowsByCode.begin() + values.starts[code],
                    values.rowsByCode.begin() + values.starts[code + 1]);
    }
    for (size_t row = values.grouped; row < values.codes.size(); ++row)
        if (std::ranges::find(codes, values.codes[row]) != codes.end())
            rows.push_back(static_cast<uint32_t>(row));
    return rows;
}

}  // namespace jet
