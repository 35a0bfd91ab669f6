// The words of a query.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/error.h"

namespace jet {

enum class TokenKind : uint8_t {
    End,
    Name,           // not bracketed; may be a keyword
    BracketedName,  // never a keyword; text without the brackets
    Text,           // text without the quotation marks around it
    Number,
    Equal,
    NotEqual,
    Less,
    LessOrEqual,
    Greater,
    GreaterOrEqual,
    OpenParenthesis,
    CloseParenthesis,
    Comma,
    Star,
    Minus,
    Plus,
    Semicolon,
};

// Good as long as the query's text.
struct Token {
    TokenKind kind = TokenKind::End;
    size_t position = 0;       // in the query, from 0
    std::u16string_view text;  // Name, BracketedName, Text, as the query has it
    char16_t doubledMark = 0;  // Text: the quotation mark that it holds doubled; 0 for none
    double number = 0;         // Number

    // Replaces `out` by what `text` stands for, doubled marks undone.
    void copyText(std::u16string& out) const;
};

// Error 3075 with the place in the query, counted from 1 for the reader.
base::Error syntaxError(std::u16string_view what, size_t position);

class SqlLexer {
  public:
    // Begins at the character `at`. `sql` must outlive the lexer.
    explicit SqlLexer(std::u16string_view sql, size_t at = 0) : sql_(sql), at_(at) {}

    // The next token; End again and again at the end. Throws SyntaxError, and Overflow for a number
    // beyond all bounds.
    Token next();
    // The same in the place of `token`.
    void next(Token& token);
    // Where the last token ended.
    size_t position() const { return at_; }

  private:
    void skipBlanks();
    // These take what begins here into an empty token.
    void take(Token& token);
    void single(TokenKind kind, Token& token);
    void comparison(Token& token);
    void name(Token& token);
    void bracketedName(Token& token);
    void text(Token& token);
    bool shortWholeNumber(Token& token);
    void number(Token& token);

    std::u16string_view sql_;
    size_t at_;
};

}  // namespace jet
