#include "jet/sqllexer.h"

#include <charconv>
#include <system_error>

#include "base/number.h"

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

void SqlLexer::skipBlanks() {
    while (at_ < sql_.size() && isBlank(sql_[at_]))
        ++at_;
}

Token SqlLexer::next() {
    skipBlanks();
    if (at_ == sql_.size()) return {.kind = TokenKind::End, .position = at_, .text = {}};
    const char16_t c = sql_[at_];
    switch (c) {
        case u'(':
            return single(TokenKind::OpenParenthesis);
        case u')':
            return single(TokenKind::CloseParenthesis);
        case u',':
            return single(TokenKind::Comma);
        case u'*':
            return single(TokenKind::Star);
        case u'-':
            return single(TokenKind::Minus);
        case u'+':
            return single(TokenKind::Plus);
        case u';':
            return single(TokenKind::Semicolon);
        case u'=':
        case u'<':
        case u'>':
            return comparison();
        case u'"':
        case u'\'':
            return text();
        case u'[':
            return bracketedName();
        default:
            break;
    }
    if (isDigit(c) || c == u'.') return number();
    if (isNameStart(c)) return name();
    throw syntaxError(u"caract\u00E8re inattendu", at_);
}

Token SqlLexer::single(TokenKind kind) {
    return {.kind = kind, .position = at_++, .text = {}};
}

Token SqlLexer::comparison() {
    const size_t start = at_;
    const char16_t first = sql_[at_++];
    const char16_t second = at_ < sql_.size() ? sql_[at_] : u'\0';
    TokenKind kind = TokenKind::Equal;
    if (first == u'<') kind = TokenKind::Less;
    if (first == u'>') kind = TokenKind::Greater;
    if (first == u'<' && second == u'>') kind = TokenKind::NotEqual;
    if (first == u'<' && second == u'=') kind = TokenKind::LessOrEqual;
    if (first == u'>' && second == u'=') kind = TokenKind::GreaterOrEqual;
    const bool twoCharacters = kind == TokenKind::NotEqual || kind == TokenKind::LessOrEqual ||
                               kind == TokenKind::GreaterOrEqual;
    if (twoCharacters) ++at_;
    return {.kind = kind, .position = start, .text = {}};
}

Token SqlLexer::name() {
    const size_t start = at_;
    while (at_ < sql_.size() && isNamePart(sql_[at_]))
        ++at_;
    return {.kind = TokenKind::Name,
            .position = start,
            .text = std::u16string(sql_.substr(start, at_ - start))};
}

Token SqlLexer::bracketedName() {
    const size_t start = at_;
    const size_t close = sql_.find(u']', start);
    if (close == sql_.npos) throw syntaxError(u"crochet non ferm\u00E9", start);
    at_ = close + 1;
    return {.kind = TokenKind::BracketedName,
            .position = start,
            .text = std::u16string(sql_.substr(start + 1, close - start - 1))};
}

Token SqlLexer::text() {
    Token token{.kind = TokenKind::Text, .position = at_, .text = {}};
    const char16_t quote = sql_[at_++];
    while (true) {
        const size_t close = sql_.find(quote, at_);
        if (close == sql_.npos) throw syntaxError(u"guillemet non ferm\u00E9", token.position);
        token.text.append(sql_.substr(at_, close - at_));
        at_ = close + 1;
        if (at_ == sql_.size() || sql_[at_] != quote) return token;
        token.text.push_back(quote);
        ++at_;
    }
}

Token SqlLexer::number() {
    const size_t start = at_;
    std::string digits;
    for (; at_ < sql_.size(); ++at_) {
        const char16_t c = sql_[at_];
        const char16_t before = at_ > start ? sql_[at_ - 1] : u'\0';
        const bool sign = (c == u'+' || c == u'-') && (before == u'e' || before == u'E');
        if (!isNamePart(c) && c != u'.' && !sign) break;
        digits.push_back(c < 0x80 ? static_cast<char>(c) : '?');
    }
    Token token{.kind = TokenKind::Number, .position = start, .text = {}};
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, token.number);
    if (error == std::errc::result_out_of_range)
        throw Error(ErrorNumber::Overflow, u"D\u00E9passement de capacit\u00E9.");
    if (error != std::errc() || stop != end) throw syntaxError(u"nombre mal \u00E9crit", start);
    return token;
}

}  // namespace jet
