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
    Text,           // text without the quotation marks, doubled ones undone
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

struct Token {
    TokenKind kind = TokenKind::End;
    size_t position = 0;  // in the query, from 0
    std::u16string text;  // Name, BracketedName, Text
    double number = 0;    // Number
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
    // The same in the place of `token`, whose text lends its room to the new one.
    void next(Token& token);
    // Where the last token ended.
    size_t position() const { return at_; }

  private:
    void skipBlanks();
    // These take what begins here into a token that is empty.
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
