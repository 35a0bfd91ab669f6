#include "jet/preparedquery.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "jet/sqlparser.h"
#include "jet/store.h"
#include "jet/table.h"

namespace jet {
namespace {

// A run over a medium asks two queries in turn, the main window one of its own meanwhile.
constexpr size_t kMostQueries = 4;

bool hasLiteralToken(const ColumnTest& test) {
    return test.kind == ColumnTest::Kind::Text || test.kind == ColumnTest::Kind::Number ||
           test.kind == ColumnTest::Kind::Like;
}

// == would compare these one by one.
bool startsWith(std::u16string_view text, std::u16string_view start) {
    return text.size() >= start.size() && std::equal(start.begin(), start.end(), text.begin());
}

// The tests with a literal, in the order of the query's text.
void collectTests(Condition& condition, std::vector<ColumnTest*>& tests) {
    for (Condition& operand : condition.operands)
        collectTests(operand, tests);
    if (condition.kind == Condition::Kind::Test && hasLiteralToken(condition.test))
        tests.push_back(&condition.test);
}

}  // namespace

PreparedQuery::PreparedQuery(std::u16string_view sql, Store& store, const TextOrder& textOrder)
    : sql_(sql), textOrder_(textOrder) {
    const SelectStatement statement = parseSelect(sql);
    table_ = &store.table(statement.table);
    query_ = bindQuery(statement, table_->definition(), textOrder);
    findLiterals();
    linkLiterals();
}

void PreparedQuery::findLiterals() {
    SqlLexer lexer(sql_);
    for (Token token = lexer.next(); token.kind != TokenKind::End; token = lexer.next()) {
        if (token.kind != TokenKind::Text && token.kind != TokenKind::Number) continue;
        literals_.push_back({.start = token.position, .end = lexer.position(), .kind = token.kind});
    }
    values_.resize(literals_.size());
}

void PreparedQuery::linkLiterals() {
    std::vector<ColumnTest*> tests;
    if (query_.where) collectTests(*query_.where, tests);
    // TRUE and FALSE are literals that are words: no telling then which test is whose.
    linked_ = tests.size() == literals_.size();
    for (size_t i = 0; linked_ && i < tests.size(); ++i) {
        literals_[i].test = tests[i];
        literals_[i].negative = std::signbit(tests[i]->number);
    }
}

bool PreparedQuery::become(std::u16string_view sql) {
    if (!linked_) return sql == sql_;
    const std::u16string_view known = sql_;
    size_t at = 0;
    size_t knownAt = 0;
    for (size_t i = 0; i < literals_.size(); ++i) {
        const Literal& literal = literals_[i];
        const std::u16string_view words = known.substr(knownAt, literal.start - knownAt);
        if (!startsWith(sql.substr(at), words)) return false;
        at += words.size();
        SqlLexer lexer(sql, at);
        lexer.next(values_[i]);
        if (values_[i].kind != literal.kind || values_[i].position != at) return false;
        at = lexer.position();
        knownAt = literal.end;
    }
    if (sql.substr(at) != known.substr(knownAt)) return false;
    for (size_t i = 0; i < literals_.size(); ++i)
        set(literals_[i], values_[i]);
    return true;
}

void PreparedQuery::set(const Literal& literal, const Token& value) const {
    ColumnTest& test = *literal.test;
    switch (test.kind) {
        case ColumnTest::Kind::Number:
            test.number = literal.negative ? -value.number : value.number;
            break;
        case ColumnTest::Kind::Like: {
            std::u16string pattern;
            value.copyText(pattern);
            test.pattern.emplace(pattern, textOrder_);
            break;
        }
        default:
            // Of a text and its type mostly the type is that of the last query.
            if (value.doubledMark == 0 && value.text == test.text) break;
            value.copyText(test.text);
            test.hash = textOrder_.hash(test.text);
            break;
    }
}

const PreparedQuery* PreparedQueries::known(std::u16string_view sql) {
    const auto place = std::ranges::find_if(
        queries_,
        [sql](const std::unique_ptr<PreparedQuery>& query) { return query->become(sql); });
    if (place == queries_.end()) return nullptr;
    std::rotate(queries_.begin(), place, place + 1);
    return queries_.front().get();
}

const PreparedQuery& PreparedQueries::prepare(std::u16string_view sql, Store& store,
                                              const TextOrder& textOrder) {
    if (const PreparedQuery* query = known(sql)) return *query;
    auto fresh = std::make_unique<PreparedQuery>(sql, store, textOrder);
    if (queries_.size() == kMostQueries) queries_.pop_back();
    queries_.insert(queries_.begin(), std::move(fresh));
    return *queries_.front();
}

}  // namespace jet
