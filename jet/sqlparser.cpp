#include "jet/sqlparser.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/text.h"
#include "jet/sqllexer.h"

namespace jet {
namespace {

// Far more than any sensible query; keeps the call stack small.
constexpr int kMaxDepth = 100;

constexpr std::array<std::u16string_view, 14> kKeywords = {
    u"SELECT", u"DISTINCT", u"FROM", u"WHERE", u"ORDER", u"BY",   u"AND",
    u"OR",     u"NOT",      u"LIKE", u"IS",    u"NULL",  u"TRUE", u"FALSE",
};

bool sameWord(std::u16string_view word, std::u16string_view capitals) {
    return std::ranges::equal(word, capitals,
                              [](char16_t a, char16_t b) { return base::upper(a) == b; });
}

bool isReserved(std::u16string_view word) {
    return std::ranges::any_of(
        kKeywords, [word](std::u16string_view keyword) { return sameWord(word, keyword); });
}

// a < b says the same as b > a.
CompareOperator turned(CompareOperator comparison) {
    switch (comparison) {
        case CompareOperator::Less:
            return CompareOperator::Greater;
        case CompareOperator::LessOrEqual:
            return CompareOperator::GreaterOrEqual;
        case CompareOperator::Greater:
            return CompareOperator::Less;
        case CompareOperator::GreaterOrEqual:
            return CompareOperator::LessOrEqual;
        case CompareOperator::Equal:
        case CompareOperator::NotEqual:
            break;
    }
    return comparison;
}

class Parser {
  public:
    explicit Parser(std::u16string_view sql) : lexer_(sql), token_(lexer_.next()) {}

    SelectStatement select() {
        SelectStatement statement;
        expectKeyword(u"SELECT");
        statement.distinct = acceptKeyword(u"DISTINCT");
        if (!accept(TokenKind::Star)) {
            do
                statement.columns.push_back(columnName());
            while (accept(TokenKind::Comma));
        }
        expectKeyword(u"FROM");
        statement.table = columnName().name;
        if (acceptKeyword(u"WHERE")) statement.where = disjunction(0);
        if (acceptKeyword(u"ORDER")) {
            expectKeyword(u"BY");
            do
                statement.order.push_back(orderTerm());
            while (accept(TokenKind::Comma));
        }
        accept(TokenKind::Semicolon);
        if (token_.kind != TokenKind::End) fail(u"fin de la requ\u00EAte attendue");
        return statement;
    }

  private:
    [[noreturn]] void fail(std::u16string_view what) const {
        throw syntaxError(what, token_.position);
    }

    Token take() { return std::exchange(token_, lexer_.next()); }

    bool accept(TokenKind kind) {
        if (token_.kind != kind) return false;
        take();
        return true;
    }

    bool atKeyword(std::u16string_view keyword) const {
        return token_.kind == TokenKind::Name && sameWord(token_.text, keyword);
    }

    bool acceptKeyword(std::u16string_view keyword) {
        if (!atKeyword(keyword)) return false;
        take();
        return true;
    }

    void expectKeyword(std::u16string_view keyword) {
        if (!acceptKeyword(keyword)) fail(std::u16string(keyword) + u" attendu");
    }

    bool atName() const {
        return token_.kind == TokenKind::BracketedName ||
               (token_.kind == TokenKind::Name && !isReserved(token_.text));
    }

    ColumnName columnName() {
        if (!atName()) fail(u"nom attendu");
        const Token token = take();
        return {std::u16string(token.text), token.position};
    }

    OrderTerm orderTerm() {
        OrderTerm term{.column = columnName()};
        if (acceptKeyword(u"DESC")) {
            term.descending = true;
        } else {
            acceptKeyword(u"ASC");
        }
        return term;
    }

    // One operand alone stands for itself.
    static Expression joined(Expression::Kind kind, std::vector<Expression> operands) {
        if (operands.size() == 1) return std::move(operands.front());
        Expression expression;
        expression.kind = kind;
        expression.operands = std::move(operands);
        return expression;
    }

    Expression disjunction(int depth) {
        if (depth > kMaxDepth) fail(u"trop de parenth\u00E8ses");
        std::vector<Expression> operands;
        do
            operands.push_back(conjunction(depth));
        while (acceptKeyword(u"OR"));
        return joined(Expression::Kind::Or, std::move(operands));
    }

    Expression conjunction(int depth) {
        std::vector<Expression> operands;
        do
            operands.push_back(negation(depth));
        while (acceptKeyword(u"AND"));
        return joined(Expression::Kind::And, std::move(operands));
    }

    Expression negation(int depth) {
        bool negated = false;
        while (acceptKeyword(u"NOT"))
            negated = !negated;
        Expression expression = test(depth);
        return negated ? negationOf(std::move(expression)) : expression;
    }

    static Expression negationOf(Expression expression) {
        Expression outer;
        outer.kind = Expression::Kind::Not;
        outer.operands.push_back(std::move(expression));
        return outer;
    }

    Expression test(int depth) {
        if (accept(TokenKind::OpenParenthesis)) {
            Expression expression = disjunction(depth + 1);
            if (!accept(TokenKind::CloseParenthesis)) fail(u"parenth\u00E8se fermante attendue");
            return expression;
        }
        return atName() ? columnTest() : turnedComparison();
    }

    Expression columnTest() {
        Expression expression;
        expression.column = columnName();
        if (acceptKeyword(u"IS")) {
            expression.kind = Expression::Kind::IsNull;
            const bool negated = acceptKeyword(u"NOT");
            expectKeyword(u"NULL");
            return negated ? negationOf(std::move(expression)) : expression;
        }
        const bool notLike = acceptKeyword(u"NOT");
        if (notLike || atKeyword(u"LIKE")) {
            expectKeyword(u"LIKE");
            expression.kind = Expression::Kind::Like;
            if (token_.kind != TokenKind::Text && !atKeyword(u"NULL")) fail(u"texte attendu");
            expression.literal = literal();
            return notLike ? negationOf(std::move(expression)) : expression;
        }
        expression.kind = Expression::Kind::Compare;
        expression.comparison = compareOperator();
        expression.literal = literal();
        return expression;
    }

    Expression turnedComparison() {
        Expression expression;
        expression.kind = Expression::Kind::Compare;
        expression.literal = literal();
        expression.comparison = turned(compareOperator());
        expression.column = columnName();
        return expression;
    }

    CompareOperator compareOperator() {
        CompareOperator comparison{};
        switch (token_.kind) {
            case TokenKind::Equal:
                comparison = CompareOperator::Equal;
                break;
            case TokenKind::NotEqual:
                comparison = CompareOperator::NotEqual;
                break;
            case TokenKind::Less:
                comparison = CompareOperator::Less;
                break;
            case TokenKind::LessOrEqual:
                comparison = CompareOperator::LessOrEqual;
                break;
            case TokenKind::Greater:
                comparison = CompareOperator::Greater;
                break;
            case TokenKind::GreaterOrEqual:
                comparison = CompareOperator::GreaterOrEqual;
                break;
            default:
                fail(u"op\u00E9rateur absent");
        }
        take();
        return comparison;
    }

    Value literal() {
        if (token_.kind == TokenKind::Text) {
            std::u16string text;
            take().copyText(text);
            return text;
        }
        if (acceptKeyword(u"NULL")) return Null{};
        if (acceptKeyword(u"TRUE")) return true;
        if (acceptKeyword(u"FALSE")) return false;
        const bool negative = accept(TokenKind::Minus);
        if (!negative) accept(TokenKind::Plus);
        if (token_.kind != TokenKind::Number) fail(u"valeur attendue");
        const double number = take().number;
        return negative ? -number : number;
    }

    SqlLexer lexer_;
    Token token_;
};

}  // namespace

SelectStatement parseSelect(std::u16string_view sql) {
    return Parser(sql).select();
}

bool isSelect(std::u16string_view text) {
    const size_t start = text.find_first_not_of(u" \t\r\n");
    if (start == text.npos) return false;
    constexpr std::u16string_view kSelect = u"SELECT";
    const std::u16string_view word = text.substr(start, kSelect.size());
    const std::u16string_view rest = text.substr(start + word.size());
    return sameWord(word, kSelect) && !rest.empty() &&
           std::u16string_view(u" \t\r\n*[").find(rest.front()) != rest.npos;
}

}  // namespace jet
