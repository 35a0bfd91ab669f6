#include "jet/condition.h"

#include <utility>

#include "base/error.h"
#include "base/number.h"

namespace jet {
namespace {

using base::Error;
using base::ErrorNumber;

std::u16string placeOf(const ColumnName& column) {
    return u"caract\u00E8re " + base::plainNumber(static_cast<double>(column.position + 1)) +
           u" de la requ\u00EAte";
}

[[noreturn]] void typeMismatch(const ColumnName& column) {
    throw Error(
        ErrorNumber::TypeMismatch,
        u"Type de donn\u00E9es incompatible dans le crit\u00E8re sur la colonne \u00AB\u00A0" +
            column.name + u"\u00A0\u00BB.",
        placeOf(column));
}

CompareOperator opposite(CompareOperator comparison) {
    switch (comparison) {
        case CompareOperator::Equal:
            return CompareOperator::NotEqual;
        case CompareOperator::NotEqual:
            return CompareOperator::Equal;
        case CompareOperator::Less:
            return CompareOperator::GreaterOrEqual;
        case CompareOperator::LessOrEqual:
            return CompareOperator::Greater;
        case CompareOperator::Greater:
            return CompareOperator::LessOrEqual;
        case CompareOperator::GreaterOrEqual:
            return CompareOperator::Less;
    }
    return comparison;
}

// Whether `a comparison b` holds when comparing a with b gave `difference` (as its sign).
bool holds(CompareOperator comparison, int difference) {
    switch (comparison) {
        case CompareOperator::Equal:
            return difference == 0;
        case CompareOperator::NotEqual:
            return difference != 0;
        case CompareOperator::Less:
            return difference < 0;
        case CompareOperator::LessOrEqual:
            return difference <= 0;
        case CompareOperator::Greater:
            return difference > 0;
        case CompareOperator::GreaterOrEqual:
            return difference >= 0;
    }
    return false;
}

class Binder {
  public:
    Binder(const TableDefinition& definition, const TextOrder& order)
        : definition_(definition), order_(order) {}

    Condition bind(const Expression& expression, bool negated) const {
        switch (expression.kind) {
            case Expression::Kind::Not:
                return bind(expression.operands.front(), !negated);
            case Expression::Kind::And:
                return joined(negated ? Condition::Kind::Or : Condition::Kind::And, expression,
                              negated);
            case Expression::Kind::Or:
                return joined(negated ? Condition::Kind::And : Condition::Kind::Or, expression,
                              negated);
            case Expression::Kind::Compare:
                return single(comparison(expression, negated));
            case Expression::Kind::Like:
                return single(like(expression, negated));
            case Expression::Kind::IsNull:
                break;
        }
        ColumnTest test;
        test.kind = ColumnTest::Kind::Null;
        test.column = &bindColumn(expression.column, definition_);
        test.negated = negated;
        return single(std::move(test));
    }

  private:
    static Condition single(ColumnTest test) {
        Condition condition;
        condition.test = std::move(test);
        return condition;
    }

    Condition joined(Condition::Kind kind, const Expression& expression, bool negated) const {
        Condition condition;
        condition.kind = kind;
        condition.operands.reserve(expression.operands.size());
        for (const Expression& operand : expression.operands)
            condition.operands.push_back(bind(operand, negated));
        return condition;
    }

    ColumnTest comparison(const Expression& expression, bool negated) const {
        ColumnTest test;
        test.column = &bindColumn(expression.column, definition_);
        test.comparison = negated ? opposite(expression.comparison) : expression.comparison;
        const bool asNumber = isComparedAsNumber(*test.column);
        if (!asNumber && !test.column->isText()) typeMismatch(expression.column);
        if (std::holds_alternative<Null>(expression.literal)) return test;
        if (const auto* text = std::get_if<std::u16string>(&expression.literal)) {
            if (asNumber) typeMismatch(expression.column);
            test.kind = ColumnTest::Kind::Text;
            test.text = *text;
            test.hash = order_.hash(test.text);
            return test;
        }
        if (!asNumber) typeMismatch(expression.column);
        test.kind = ColumnTest::Kind::Number;
        if (const auto* boolean = std::get_if<bool>(&expression.literal)) {
            test.number = *boolean ? -1 : 0;
        } else {
            test.number = std::get<double>(expression.literal);
        }
        return test;
    }

    ColumnTest like(const Expression& expression, bool negated) const {
        ColumnTest test;
        test.column = &bindColumn(expression.column, definition_);
        if (!test.column->isText() && !isComparedAsNumber(*test.column))
            typeMismatch(expression.column);
        if (const auto* pattern = std::get_if<std::u16string>(&expression.literal)) {
            test.kind = ColumnTest::Kind::Like;
            test.negated = negated;
            test.pattern.emplace(*pattern, order_);
        }
        return test;
    }

    const TableDefinition& definition_;
    const TextOrder& order_;
};

}  // namespace

Condition bindCondition(const Expression& expression, const TableDefinition& definition,
                        const TextOrder& order) {
    return Binder(definition, order).bind(expression, false);
}

const Column& bindColumn(const ColumnName& name, const TableDefinition& definition) {
    if (const Column* column = definition.find(name.name)) return *column;
    throw Error(ErrorNumber::ParameterExpected,
                u"La colonne \u00AB\u00A0" + name.name +
                    u"\u00A0\u00BB n'existe pas dans la table "
                    u"\u00AB\u00A0" +
                    definition.name + u"\u00A0\u00BB.",
                placeOf(name));
}

bool passesNull(const ColumnTest& test) {
    return test.kind == ColumnTest::Kind::Null && !test.negated;
}

bool passesText(const ColumnTest& test, std::u16string_view text, const TextOrder& order) {
    switch (test.kind) {
        case ColumnTest::Kind::Text:
            return holds(test.comparison, order.compare(text, test.text));
        case ColumnTest::Kind::Like:
            return test.pattern->matches(text) != test.negated;
        case ColumnTest::Kind::Null:
            return test.negated;
        case ColumnTest::Kind::Number:
        case ColumnTest::Kind::Never:
            break;
    }
    return false;
}

bool passesNumber(const ColumnTest& test, double number) {
    switch (test.kind) {
        case ColumnTest::Kind::Number:
            return holds(test.comparison, number < test.number ? -1 : number > test.number);
        case ColumnTest::Kind::Like:
            return test.pattern->matches(base::plainNumber(number)) != test.negated;
        case ColumnTest::Kind::Null:
            return test.negated;
        case ColumnTest::Kind::Text:
        case ColumnTest::Kind::Never:
            break;
    }
    return false;
}

bool isComparedAsNumber(const Column& column) {
    return column.isNumber() || column.type == ColumnType::Boolean;
}

}  // namespace jet
