#include "jet/columnreader.h"

#include <bit>

#include "jet/bytes.h"
#include "jet/condition.h"

namespace jet {
namespace {

constexpr uint8_t kNullMark = 0;
constexpr uint8_t kValueMark = 1;

int compareNumbers(double a, double b) {
    return a < b ? -1 : (a > b ? 1 : 0);
}

}  // namespace

uint64_t orderedBits(double value) {
    constexpr uint64_t kSign = uint64_t{1} << 63;
    // Adding 0 turns -0 into +0, which it equals.
    const auto bits = std::bit_cast<uint64_t>(value + 0.0);
    return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

bool ColumnReader::number(RowView row, const Column& column, double& out) const {
    if (column.type != ColumnType::Boolean) return table_.number(row, column, out);
    out = std::get<bool>(table_.value(row, column)) ? -1 : 0;
    return true;
}

bool ColumnReader::isNull(RowView row, const Column& column) {
    double ignored = 0;
    RawText raw;
    if (column.isText()) return !table_.rawText(row, column, raw, scratch_);
    if (isComparedAsNumber(column)) return !number(row, column, ignored);
    return std::holds_alternative<Null>(table_.value(row, column));
}

int ColumnReader::compare(RowView a, RowView b, const Column& column) {
    if (column.isText()) {
        const bool leftSet = text(a, column, left_);
        const bool rightSet = text(b, column, right_);
        if (!leftSet || !rightSet) return static_cast<int>(leftSet) - static_cast<int>(rightSet);
        return order_.compare(left_, right_);
    }
    if (!isComparedAsNumber(column)) return 0;
    double x = 0;
    double y = 0;
    const bool leftSet = number(a, column, x);
    const bool rightSet = number(b, column, y);
    if (!leftSet || !rightSet) return static_cast<int>(leftSet) - static_cast<int>(rightSet);
    return compareNumbers(x, y);
}

uint64_t ColumnReader::sortPrefix(RowView row, const Column& column) {
    if (column.isText()) return text(row, column, left_) ? order_.prefix(left_) : 0;
    double value = 0;
    if (!isComparedAsNumber(column) || !number(row, column, value)) return 0;
    return orderedBits(value);
}

void ColumnReader::appendKey(RowView row, const Column& column, Bytes& key) {
    if (isNull(row, column)) {
        key.push_back(kNullMark);
        return;
    }
    key.push_back(kValueMark);
    const size_t lengthAt = key.size();
    key.resize(lengthAt + sizeof(uint32_t));
    double value = 0;
    if (column.isText()) {
        text(row, column, left_);
        order_.appendKey(left_, key);
    } else if (isComparedAsNumber(column) && number(row, column, value)) {
        key.resize(key.size() + sizeof(uint64_t));
        put64(key.data() + key.size() - sizeof(uint64_t), orderedBits(value));
    } else {
        const Value bytes = table_.value(row, column);
        if (const auto* content = std::get_if<Bytes>(&bytes))
            key.insert(key.end(), content->begin(), content->end());
    }
    const size_t length = key.size() - lengthAt - sizeof(uint32_t);
    put32(key.data() + lengthAt, static_cast<uint32_t>(length));
}

}  // namespace jet
