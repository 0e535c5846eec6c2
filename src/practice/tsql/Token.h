// A word of the text. Tokens are small and point into the text; what a token means (a name without its
// brackets, a string without its quotes) is worked out by TokenValue when it is asked for.
#pragma once

#include "practice/tsql/Keywords.h"
#include "practice/tsql/TreeNode.h"

namespace quillon::practice::tsql {

enum class TokenKind : std::uint8_t {
    End,
    Identifier,   // a word, reserved or not
    Bracketed,    // [name]
    DoubleQuoted, // "..." is a name or a string, as SET QUOTED_IDENTIFIER says
    String,       // '...'
    NString,      // N'...'
    Integer,
    Decimal,
    Float,
    Money,
    Binary,
    Variable,       // @name
    GlobalVariable, // @@NAME
    PseudoColumn,   // $IDENTITY
    Symbol,
};

enum class Symbol : std::uint8_t {
    None,
    LeftParen,
    RightParen,
    Comma,
    Semicolon,
    Point,
    Colon,
    DoubleColon,
    LeftBrace,
    RightBrace,
    Plus,
    Minus,
    Star,
    Slash,
    PercentSign,
    Ampersand,
    Bar,
    Caret,
    Tilde,
    Equal,
    NotEqual, // <> and !=
    Less,
    LessEqual, // <= and !>
    Greater,
    GreaterEqual, // >= and !<
    PlusEqual,
    MinusEqual,
    StarEqual,
    SlashEqual,
    PercentEqual,
    AmpersandEqual,
    BarEqual,
    CaretEqual,
    Unknown, // a character that the language does not have
};

struct Token {
    TokenKind kind = TokenKind::End;
    Keyword keyword = Keyword::None;
    Symbol symbol = Symbol::None;
    std::uint32_t line = 1;
    std::size_t begin = 0;
    std::size_t end = 0;

    Position At() const { return {static_cast<int>(line), begin}; }
};

} // namespace quillon::practice::tsql
