// Tokens and the places of errors in the text of a program.

#include <gtest/gtest.h>

#include "platform/FailureNumbers.h"
#include "vbscript/machine/Text.h"
#include "vbscript/source/Lexer.h"
#include "vbscript/source/Parser.h"

namespace quillon::vbscript::tests {
namespace {

TEST(Lexer, TellsTokensApart) {
    struct Case {
        const char16_t* text;
        std::vector<TokenKind> kinds;
    };
    using enum TokenKind;
    const Case cases[] = {
        {u"", {EndOfText}},
        {u"a.b", {Name, Dot, Name, EndOfText}},
        {u"1 32768 1.5 1e3 .5", {Integer, Long, Double, Double, Double, EndOfText}},
        {u"&HFF &hFFFFF &O7 &HFFFF&", {Integer, Long, Integer, Long, EndOfText}},
        {u"a & b", {Name, Concatenate, Name, EndOfText}},
        {u"a &header", {Name, Concatenate, Name, EndOfText}},
        {u"\"a\"\"b\"", {String, EndOfText}},
        {u"#1/2/2003#", {Date, EndOfText}},
        {u"a\r\nb\rc\nd", {Name, NewLine, Name, NewLine, Name, NewLine, Name, EndOfText}},
        {u"a _\r\n b", {Name, Name, EndOfText}},
        {u"a ' b\nc", {Name, NewLine, Name, EndOfText}},
        {u"Rem b\nc", {NewLine, Name, EndOfText}},
        {u"<= =< >= => <> >< < > =",
         {LessOrEqual, LessOrEqual, GreaterOrEqual, GreaterOrEqual, NotEqual, NotEqual, Less, Greater, Equal,
          EndOfText}},
        {u"[a b] [end]", {Name, Name, EndOfText}},
    };
    for (const Case& item : cases) {
        Names names;
        std::vector<TokenKind> kinds;
        for (const Token& token : Tokenize(item.text, names).tokens)
            kinds.push_back(token.kind);
        EXPECT_EQ(kinds, item.kinds) << ToUtf8(item.text);
    }
}

TEST(Lexer, NamesAreTheSameWithoutRegardToCase) {
    Names names;
    const TokenList list = Tokenize(u"Name NAME [name] other x.End", names);
    EXPECT_EQ(list.tokens[0].name, list.tokens[1].name);
    EXPECT_EQ(list.tokens[0].name, list.tokens[2].name);
    EXPECT_NE(list.tokens[0].name, list.tokens[3].name);
    EXPECT_EQ(list.tokens[6].keyword, Keyword::None) << "a word of the language is a name behind a dot";
    EXPECT_EQ(names.Utf8(list.tokens[1].name), "Name");
}

TEST(Parser, ReportsWhereATextIsWrong) {
    struct Case {
        const char16_t* text;
        std::int32_t number, line, column;
    };
    const Case cases[] = {
        {u"x = \"abc", numbers::UnterminatedString, 1, 8},
        {u"\n\n  x = )", numbers::ExpectedExpression, 3, 6},
        {u"If x Then\ny = 1", numbers::ExpectedEnd, 2, 5},
        {u"a = 1\rb = 2 c", numbers::ExpectedEndOfStatement, 2, 6},
        {u"a = 1 _\n + * 2", numbers::ExpectedExpression, 2, 3},
        {u"Sub S\nSub T\nEnd Sub\nEnd Sub", numbers::SyntaxError, 2, 0},
        {u"For i = 1 To 3\nWend", numbers::ExpectedStatement, 2, 0},
        {u"Function\n", numbers::ExpectedIdentifier, 1, 8},
        {u"Do\nEnd If", numbers::ExpectedLoop, 2, 0},
    };
    for (const Case& item : cases) {
        Names names;
        try {
            Parse(item.text, names);
            ADD_FAILURE() << "accepted: " << ToUtf8(item.text);
        } catch (const CompileFailure& failure) {
            EXPECT_EQ(failure.number(), item.number) << ToUtf8(item.text);
            EXPECT_EQ(failure.place().line, item.line) << ToUtf8(item.text);
            EXPECT_EQ(failure.place().column, item.column) << ToUtf8(item.text);
        }
    }
}

TEST(Parser, AcceptsWhatProgramsContain) {
    for (const char16_t* text : {u"If a Then b Else c",
                                 u"If a Then b : c Else d : e",
                                 u"If a Then b End If",
                                 u"If a Then\nElseIf b Then\nElse\nEnd If",
                                 u"f a, , b",
                                 u"f ,a",
                                 u"f (a), b",
                                 u"f (a) + 1",
                                 u"a.b(1).c = 2",
                                 u"a.b(1).c 2, 3",
                                 u"Call a.b(1)",
                                 u"a(1)(2) = 3",
                                 u"Select Case a\nCase 1, 2: b\nCase Else\nEnd Select",
                                 u"Do : Loop",
                                 u"For Each a In b : Next",
                                 u"Class C : Public A, B(2) : Private C_ : End Class",
                                 u"Public Sub S : End Sub",
                                 u"x = Not a = b",
                                 u"x = 2 ^ -1",
                                 u"On Error GoTo 0",
                                 u"ReDim Preserve a(1, 2), b(3)",
                                 u"With a : .b = .c(1) : .d .e : End With",
                                 u"Dim property, error, step",
                                 u"x = New C",
                                 u"Set a.b = New C",
                                 u"f -1",
                                 u"f - 1",
                                 u"x.end = 1",
                                 u"Stop",
                                 u": : :",
                                 u"Erase a, b"}) {
        Names names;
        EXPECT_NO_THROW(Parse(text, names)) << ToUtf8(text);
    }
}

} // namespace
} // namespace quillon::vbscript::tests
