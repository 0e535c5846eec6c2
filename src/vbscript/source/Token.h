// The words of a program.
#pragma once

#include <cstdint>
#include <string_view>

#include "vbscript/source/Names.h"
#include "vbscript/source/Place.h"

namespace quillon::vbscript {

enum class TokenKind : std::uint8_t {
    EndOfText,
    NewLine,
    Colon,
    Name, // also a keyword, as a token's keyword says
    Integer,
    Long,
    Double,
    String,
    Date,
    OpenBracket,
    CloseBracket,
    Comma,
    Dot,
    Plus,
    Minus,
    Times,
    Divide,
    WholeDivide,
    Power,
    Concatenate,
    Equal,
    NotEqual,
    Less,
    LessOrEqual,
    Greater,
    GreaterOrEqual,
};

// Default, Error, Explicit, Property and Step stand at the end: they are words of the language only where
// the grammar asks for them, and names elsewhere.
enum class Keyword : std::uint8_t {
    None,
    And,
    ByRef,
    ByVal,
    Call,
    Case,
    Class,
    Const,
    Dim,
    Do,
    Each,
    Else,
    ElseIf,
    Empty,
    End,
    Eqv,
    Erase,
    Exit,
    False,
    For,
    Function,
    Get,
    GoTo,
    If,
    Imp,
    In,
    Is,
    Let,
    Loop,
    Me,
    Mod,
    New,
    Next,
    Not,
    Nothing,
    Null,
    On,
    Option,
    Or,
    Preserve,
    Private,
    Public,
    ReDim,
    Rem,
    Resume,
    Select,
    Set,
    Stop,
    Sub,
    Then,
    To,
    True,
    Until,
    Wend,
    While,
    With,
    Xor,
    Default,
    Error,
    Explicit,
    Property,
    Step,
};

struct Token {
    TokenKind kind = TokenKind::EndOfText;
    Keyword keyword = Keyword::None;
    bool blankBefore = false;
    Place place;
    NameId name = 0;          // Name
    double number = 0;        // numbers; Date as days
    std::u16string_view text; // String: the contents, held by the token list
};

} // namespace quillon::vbscript
