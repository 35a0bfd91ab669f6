#include "jet/sqllexer.h"

#include <charconv>
#include <system_error>

#include "base/number.h"
#include "base/text.h"

namespace jet {
namespace {

using base::Error;
using base::ErrorNumber;

bool isBlank(char16_t c) {
    return c == u' ' || (c >= u'\t' && c <= u'\r') || c == u'\u00A0';
}

bool isDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

bool isNameStart(char16_t c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || c == u'_' || c > 0xBF;
}

bool isNamePart(char16_t c) {
    return isNameStart(c) || isDigit(c) || c == u'$';
}

}  // namespace

Error syntaxError(std::u16string_view what, size_t position) {
    return Error(ErrorNumber::SyntaxError,
                 u"Erreur de syntaxe dans la requ\u00EAte\u00A0: " + std::u16string(what) + u".",
                 u"caract\u00E8re " + base::plainNumber(static_cast<double>(position + 1)) +
                     u" de la requ\u00EAte");
}

void Token::copyText(std::u16string& out) const {
    out.clear();
    if (doubledMark == 0) {
        out.append(text);
        return;
    }
    for (size_t at = 0; at < text.size(); ++at) {
        out.push_back(text[at]);
        if (text[at] == doubledMark) ++at;
    }
}

void SqlLexer::skipBlanks() {
    while (at_ < sql_.size() && isBlank(sql_[at_]))
        ++at_;
}

Token SqlLexer::next() {
    Token token;
    next(token);
    return token;
}

void SqlLexer::next(Token& token) {
    skipBlanks();
    token = Token{};
    token.position = at_;
    if (at_ < sql_.size()) take(token);
}

void SqlLexer::take(Token& token) {
    const char16_t c = sql_[at_];
    switch (c) {
        case u'(':
            return single(TokenKind::OpenParenthesis, token);
        case u')':
            return single(TokenKind::CloseParenthesis, token);
        case u',':
            return single(TokenKind::Comma, token);
        case u'*':
            return single(TokenKind::Star, token);
        case u'-':
            return single(TokenKind::Minus, token);
        case u'+':
            return single(TokenKind::Plus, token);
        case u';':
            return single(TokenKind::Semicolon, token);
        case u'=':
        case u'<':
        case u'>':
            return comparison(token);
        case u'"':
        case u'\'':
            return text(token);
        case u'[':
            return bracketedName(token);
        default:
            break;
    }
    if (isDigit(c) || c == u'.') return number(token);
    if (isNameStart(c)) return name(token);
    throw syntaxError(u"caract\u00E8re inattendu", at_);
}

void SqlLexer::single(TokenKind kind, Token& token) {
    token.kind = kind;
    ++at_;
}

void SqlLexer::comparison(Token& token) {
    const char16_t first = sql_[at_++];
    const char16_t second = at_ < sql_.size() ? sql_[at_] : u'\0';
    token.kind = TokenKind::Equal;
    if (first == u'<') token.kind = TokenKind::Less;
    if (first == u'>') token.kind = TokenKind::Greater;
    if (first == u'<' && second == u'>') token.kind = TokenKind::NotEqual;
    if (first == u'<' && second == u'=') token.kind = TokenKind::LessOrEqual;
    if (first == u'>' && second == u'=') token.kind = TokenKind::GreaterOrEqual;
    const bool twoCharacters = token.kind == TokenKind::NotEqual ||
                               token.kind == TokenKind::LessOrEqual ||
                               token.kind == TokenKind::GreaterOrEqual;
    if (twoCharacters) ++at_;
}

void SqlLexer::name(Token& token) {
    token.kind = TokenKind::Name;
    while (at_ < sql_.size() && isNamePart(sql_[at_]))
        ++at_;
    token.text = sql_.substr(token.position, at_ - token.position);
}

void SqlLexer::bracketedName(Token& token) {
    token.kind = TokenKind::BracketedName;
    const size_t start = token.position + 1;
    const size_t close = sql_.find(u']', start);
    if (close == sql_.npos) throw syntaxError(u"crochet non ferm\u00E9", token.position);
    token.text = sql_.substr(start, close - start);
    at_ = close + 1;
}

void SqlLexer::text(Token& token) {
    token.kind = TokenKind::Text;
    const char16_t mark = sql_[at_++];
    const size_t start = at_;
    while (true) {
        const size_t close = base::find(sql_, mark, at_);
        if (close == sql_.npos) throw syntaxError(u"guillemet non ferm\u00E9", token.position);
        at_ = close + 1;
        if (at_ == sql_.size() || sql_[at_] != mark) break;
        token.doubledMark = mark;
        ++at_;
    }
    token.text = sql_.substr(start, at_ - 1 - start);
}

// Most numbers are whole, and short enough for a double to hold exactly. False when this one is
// not.
bool SqlLexer::shortWholeNumber(Token& token) {
    constexpr size_t kMostDigits = 15;
    uint64_t number = 0;
    size_t at = at_;
    for (; at < sql_.size() && at - at_ < kMostDigits && isDigit(sql_[at]); ++at)
        number = number * 10 + (sql_[at] - u'0');
    if (at == at_ || (at < sql_.size() && (isNamePart(sql_[at]) || sql_[at] == u'.'))) return false;
    token.number = static_cast<double>(number);
    at_ = at;
    return true;
}

void SqlLexer::number(Token& token) {
    token.kind = TokenKind::Number;
    if (shortWholeNumber(token)) return;
    std::string digits;
    for (; at_ < sql_.size(); ++at_) {
        const char16_t c = sql_[at_];
        const char16_t before = at_ > token.position ? sql_[at_ - 1] : u'\0';
        const bool sign = (c == u'+' || c == u'-') && (before == u'e' || before == u'E');
        if (!isNamePart(c) && c != u'.' && !sign) break;
        digits.push_back(c < 0x80 ? static_cast<char>(c) : '?');
    }
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, token.number);
    if (error == std::errc::result_out_of_range)
        throw Error(ErrorNumber::Overflow, u"D\u00E9passement de capacit\u00E9.");
    if (error != std::errc() || stop != end)
        throw syntaxError(u"nombre mal \u00E9crit", token.position);
}

}  // namespace jet
