// A parsed SELECT, names not yet looked up.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "jet/value.h"

namespace jet {

// A column as the query writes it.
struct ColumnName {
    std::u16string name;
    size_t position = 0;  // in the query, from 0
};

enum class CompareOperator : uint8_t {
    Equal,
    NotEqual,
    Less,
    LessOrEqual,
    Greater,
    GreaterOrEqual
};

struct Expression {
    enum class Kind : uint8_t { Compare, Like, IsNull, And, Or, Not };

    Kind kind = Kind::And;
    // Compare, Like, IsNull: the column on the left. A comparison that the query writes the other
    // way round is turned.
    ColumnName column;
    CompareOperator comparison = CompareOperator::Equal;
    // Compare: Null, bool, double or text. Like: the pattern, Null or text.
    Value literal;
    // And, Or: two or more; Not: one.
    std::vector<Expression> operands;
};

struct OrderTerm {
    ColumnName column;
    bool descending = false;
};

struct SelectStatement {
    bool distinct = false;
    std::vector<ColumnName> columns;  // empty: all (`*`)
    std::u16string table;
    std::optional<Expression> where;
    std::vector<OrderTerm> order;
};

}  // namespace jet
