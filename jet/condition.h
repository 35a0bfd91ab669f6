// A WHERE clause made ready to be tested on rows: columns looked up, literals checked against their
// types, negations driven down to the single tests.
//
// A comparison with Null is neither true nor false, in SQL as in Jet, and a row is selected only
// when its condition is true. With negations gone, asking each test "is it true?" is enough.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "jet/like.h"
#include "jet/sqlast.h"
#include "jet/tabledefinition.h"
#include "jet/textorder.h"

namespace jet {

// One test of one column. `column` points into the table's definition.
struct ColumnTest {
    enum class Kind : uint8_t {
        Text,    // text column against `text`
        Number,  // number or Boolean column (true is -1, as in Jet) against `number`
        Like,    // text column, or the text of a number, against `pattern`
        Null,    // IS NULL
        Never,   // a comparison with the literal Null
    };

    Kind kind = Kind::Never;
    bool negated = false;  // Like, Null
    CompareOperator comparison = CompareOperator::Equal;
    const Column* column = nullptr;
    double number = 0;
    std::u16string text;
    uint64_t hash = 0;  // Text: of `text`, the text order's
    std::optional<LikePattern> pattern;

    HashedText hashedText() const { return {text, hash}; }
};

struct Condition {
    enum class Kind : uint8_t { Test, And, Or };

    Kind kind = Kind::Test;
    ColumnTest test;                  // Test
    std::vector<Condition> operands;  // And, Or
};

// `definition` and `order` must outlive the condition. Throws base::Error: ParameterExpected for
// a column that the table lacks, TypeMismatch for a text column against a number, a number
// column against a text, and a column of bytes against anything but IS NULL.
Condition bindCondition(const Expression& expression, const TableDefinition& definition,
                        const TextOrder& order);

// The column of that name; ParameterExpected with the place in the query otherwise.
const Column& bindColumn(const ColumnName& name, const TableDefinition& definition);

// Whether the test is true for a value of its column; each kind of column has its own.
bool passesNull(const ColumnTest& test);
bool passesText(const ColumnTest& test, std::u16string_view text, const TextOrder& order);
bool passesNumber(const ColumnTest& test, double number);

// Number columns, and Boolean columns as -1 and 0.
bool isComparedAsNumber(const Column& column);

}  // namespace jet
