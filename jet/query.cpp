#include "jet/query.h"

#include <algorithm>
#include <string>
#include <unordered_set>

#include "base/error.h"

namespace jet {
namespace {

using base::Error;
using base::ErrorNumber;

void addTested(const Condition& condition, Query::Columns& tested) {
    if (condition.kind == Condition::Kind::Test) {
        const Column* const column = condition.test.column;
        if (std::ranges::find(tested, column) == tested.end()) tested.push_back(column);
    }
    for (const Condition& operand : condition.operands)
        addTested(operand, tested);
}

Query::Columns allColumns(const TableDefinition& definition) {
    Query::Columns columns;
    columns.reserve(definition.columns.size());
    for (const Column& column : definition.columns)
        columns.push_back(&column);
    return columns;
}

SortColumn bindSort(const OrderTerm& term, const TableDefinition& definition, const Query& query) {
    const Column& column = bindColumn(term.column, definition);
    if (!column.isText() && !isComparedAsNumber(column)) {
        throw Error(ErrorNumber::NotSupported,
                    u"La colonne \u00AB\u00A0" + column.name +
                        u"\u00A0\u00BB ne peut pas \u00EAtre tri\u00E9e.");
    }
    if (query.distinct && std::ranges::find(*query.columns, &column) == query.columns->end()) {
        throw Error(ErrorNumber::NotSupported,
                    u"La clause ORDER BY (" + column.name + u") est en conflit avec DISTINCT.");
    }
    return {&column, term.descending};
}

}  // namespace

Query bindQuery(const SelectStatement& statement, const TableDefinition& definition,
                const TextOrder& textOrder) {
    Query query;
    query.distinct = statement.distinct;
    Query::Columns columns;
    for (const ColumnName& name : statement.columns)
        columns.push_back(&bindColumn(name, definition));
    if (columns.empty() && query.distinct) columns = allColumns(definition);
    if (!columns.empty())
        query.columns = std::make_shared<const Query::Columns>(std::move(columns));
    if (statement.where) {
        query.where = bindCondition(*statement.where, definition, textOrder);
        addTested(*query.where, query.tested);
    }
    for (const OrderTerm& term : statement.order)
        query.order.push_back(bindSort(term, definition, query));
    return query;
}

bool RowTester::matches(RowView row, const Condition& condition) {
    const auto operandMatches = [&](const Condition& operand) { return matches(row, operand); };
    switch (condition.kind) {
        case Condition::Kind::And:
            return std::ranges::all_of(condition.operands, operandMatches);
        case Condition::Kind::Or:
            return std::ranges::any_of(condition.operands, operandMatches);
        case Condition::Kind::Test:
            break;
    }
    return passes(row, condition.test);
}

bool RowTester::passes(RowView row, const ColumnTest& test) {
    if (test.column->isText()) {
        if (!reader_.text(row, *test.column, text_)) return passesNull(test);
        return passesText(test, text_, reader_.order());
    }
    if (isComparedAsNumber(*test.column)) {
        double number = 0;
        if (!reader_.number(row, *test.column, number)) return passesNull(test);
        return passesNumber(test, number);
    }
    return test.kind == ColumnTest::Kind::Null && reader_.isNull(row, *test.column) != test.negated;
}

std::vector<RowId> rowsFromPages(const Query& query, const Table& table,
                                 const TextOrder& textOrder) {
    std::vector<RowId> rows;
    RowTester tester(table, textOrder);
    table.forEachRow([&](RowId id, RowView row) {
        if (!query.where || tester.matches(row, *query.where)) rows.push_back(id);
    });
    if (query.distinct) keepDistinct(rows, query, table, textOrder);
    sortRows(rows, query.order, table, textOrder);
    return rows;
}

void keepDistinct(std::vector<RowId>& rows, const Query& query, const Table& table,
                  const TextOrder& textOrder) {
    ColumnReader reader(table, textOrder);
    std::unordered_set<std::string> seen;
    Bytes key;
    std::erase_if(rows, [&](RowId id) {
        const RowView row = table.row(id);
        key.clear();
        for (const Column* column : *query.columns)
            reader.appendKey(row, *column, key);
        return !seen.emplace(key.begin(), key.end()).second;
    });
}

}  // namespace jet
