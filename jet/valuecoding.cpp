#include "jet/valuecoding.h"

#include <cmath>
#include <limits>
#include <optional>
#include <string>

#include "base/codepage.h"
#include "base/number.h"
#include "jet/fault.h"

namespace jet {

namespace {

using base::Error;
using base::ErrorNumber;

constexpr double kCurrencyScale = 10000;
constexpr uint8_t kNegative = 0x80;
constexpr uint32_t kDecimalSize = 17;
constexpr double kTwoTo32 = 4294967296.0;
// What Access compresses: a memo whose column asks for it up to 1024 characters; one whose column
// does not only when it is short enough to stay in its row.
constexpr size_t kLongestCompressedMemo = 1024;
constexpr size_t kLongestUnaskedMemo = 32;

std::u16string columnPlace(const Column& column) {
    return u"champ " + column.name;
}

[[noreturn]] void throwMismatch(const Column& column) {
    throw Error(ErrorNumber::TypeMismatch,
                u"La valeur n'est pas du type du champ «\u00A0" + column.name + u"\u00A0».",
                columnPlace(column));
}

[[noreturn]] void throwOverflow(const Column& column) {
    throw Error(ErrorNumber::Overflow,
                u"La valeur est trop grande pour le champ «\u00A0" + column.name + u"\u00A0».",
                columnPlace(column));
}

double decodeDecimal(const Column& column, const uint8_t* bytes) {
    double magnitude = 0;
    for (uint32_t word = 0; word < 4; ++word)
        magnitude = magnitude * kTwoTo32 + get32(bytes + 1 + size_t{4} * word);
    if (column.scale != 0) magnitude /= std::pow(10.0, column.scale);
    return (bytes[0] & kNegative) != 0 ? -magnitude : magnitude;
}

double numberOf(const Column& column, const Value& value) {
    if (const auto* whole = std::get_if<int64_t>(&value)) return static_cast<double>(*whole);
    if (const auto* real = std::get_if<double>(&value)) return *real;
    if (const auto* flag = std::get_if<bool>(&value)) return *flag ? -1 : 0;
    throwMismatch(column);
}

// Rounded as Basic does, halves to even.
int64_t wholeOf(const Column& column, const Value& value, int64_t lowest, int64_t highest) {
    int64_t whole = 0;
    if (const auto* exact = std::get_if<int64_t>(&value)) {
        whole = *exact;
    } else {
        const double rounded = std::nearbyint(numberOf(column, value));
        // 2^63 itself is not an int64_t; NaN fails the comparison, too.
        if (!(rounded >= -9223372036854775808.0 && rounded < 9223372036854775808.0))
            throwOverflow(column);
        whole = static_cast<int64_t>(rounded);
    }
    if (whole < lowest || whole > highest) throwOverflow(column);
    return whole;
}

template <typename Number>
void put(Bytes& out, Number value) {
    out.resize(sizeof value);
    putNumber(out.data(), value);
}

template <typename Whole>
void putWhole(const Column& column, const Value& value, Bytes& out) {
    put(out, static_cast<Whole>(wholeOf(column, value, std::numeric_limits<Whole>::min(),
                                        std::numeric_limits<Whole>::max())));
}

void putDecimal(const Column& column, const Value& value, Bytes& out) {
    const double scaled = std::round(numberOf(column, value) * std::pow(10.0, column.scale));
    const double magnitude = std::fabs(scaled);
    if (!(magnitude < 18446744073709551616.0)) throwOverflow(column);
    const auto digits = static_cast<uint64_t>(magnitude);
    out.assign(kDecimalSize, 0);
    if (scaled < 0) out[0] = kNegative;
    put32(out.data() + 9, static_cast<uint32_t>(digits >> 32));
    put32(out.data() + 13, static_cast<uint32_t>(digits));
}

void putNumberValue(const Column& column, const Value& value, Bytes& out) {
    switch (column.type) {
        case ColumnType::Byte:
            putWhole<uint8_t>(column, value, out);
            break;
        case ColumnType::Integer:
            putWhole<int16_t>(column, value, out);
            break;
        case ColumnType::Long:
            putWhole<int32_t>(column, value, out);
            break;
        case ColumnType::Currency: {
            const double scaled = std::nearbyint(numberOf(column, value) * kCurrencyScale);
            put(out, wholeOf(column, scaled, std::numeric_limits<int64_t>::min(),
                             std::numeric_limits<int64_t>::max()));
            break;
        }
        case ColumnType::Single: {
            const double real = numberOf(column, value);
            if (std::fabs(real) > static_cast<double>(std::numeric_limits<float>::max()))
                throwOverflow(column);
            put(out, static_cast<float>(real));
            break;
        }
        case ColumnType::Decimal:
            putDecimal(column, value, out);
            break;
        default:
            put(out, numberOf(column, value));
            break;
    }
}

void putText(const Column& column, std::u16string_view text, bool wide, Bytes& out) {
    if (column.type == ColumnType::Text && text.size() > column.characterLimit(wide))
        throw Error(ErrorNumber::ValueTooLong,
                    u"Le texte est trop long pour le champ «\u00A0" + column.name +
                        u"\u00A0»\u00A0: " + numberText(text.size()) +
                        u" caractères, alors que le champ n'en admet que " +
                        numberText(column.characterLimit(wide)) + u".",
                    columnPlace(column));
    if (!wide) {
        const std::optional<std::string> bytes = base::CodePage::windows1252().encode(text);
        if (!bytes)
            throw Error(
                ErrorNumber::NotSupported,
                u"Le texte du champ «\u00A0" + column.name +
                    u"\u00A0» contient un caractère que cette base de données (Access 97) ne "
                    u"peut pas contenir.",
                columnPlace(column));
        out.assign(bytes->begin(), bytes->end());
        return;
    }
    size_t longest = std::numeric_limits<size_t>::max();
    if (column.type == ColumnType::Memo)
        longest = column.compressed ? kLongestCompressedMemo : kLongestUnaskedMemo;
    else if (!column.compressed || column.fixed)
        longest = 0;
    encodeJet4Text(text, text.size() <= longest ? Compression::WhenSmaller : Compression::Never,
                   out);
}

void putBytes(const Column& column, const Value& value, Bytes& out) {
    const auto* bytes = std::get_if<Bytes>(&value);
    if (bytes == nullptr) throwMismatch(column);
    if (column.type == ColumnType::Guid && bytes->size() != column.length) throwMismatch(column);
    if (column.type == ColumnType::Binary && bytes->size() > column.length)
        throw Error(ErrorNumber::ValueTooLong,
                    u"La valeur est trop longue pour le champ «\u00A0" + column.name +
                        u"\u00A0»\u00A0: " + numberText(bytes->size()) +
                        u" octets, alors que le champ n'en admet que " + numberText(column.length) +
                        u".",
                    columnPlace(column));
    out = *bytes;
}

}  // namespace

double decodeNumber(const Column& column, Cell cell) {
    if (cell.length < column.length) throwDamagedRow();
    switch (column.type) {
        case ColumnType::Byte:
            return cell.bytes[0];
        case ColumnType::Integer:
            return getNumber<int16_t>(cell.bytes);
        case ColumnType::Long:
            return getNumber<int32_t>(cell.bytes);
        case ColumnType::Currency:
            return static_cast<double>(getNumber<int64_t>(cell.bytes)) / kCurrencyScale;
        case ColumnType::Single:
            return static_cast<double>(getNumber<float>(cell.bytes));
        case ColumnType::Decimal:
            return decodeDecimal(column, cell.bytes);
        default:
            return getNumber<double>(cell.bytes);
    }
}

Value decodeNumberValue(const Column& column, Cell cell) {
    const double number = decodeNumber(column, cell);
    switch (column.type) {
        case ColumnType::Byte:
        case ColumnType::Integer:
        case ColumnType::Long:
            return static_cast<int64_t>(number);
        default:
            return number;
    }
}

void encodeValue(const Column& column, const Value& value, bool wide, Bytes& out) {
    if (const auto* text = std::get_if<std::u16string>(&value); text && column.isText())
        putText(column, *text, wide, out);
    else if (column.isText())
        putText(column, base::plainNumber(numberOf(column, value)), wide, out);
    else if (column.isNumber())
        putNumberValue(column, value, out);
    else
        putBytes(column, value, out);
}

}  // namespace jet
