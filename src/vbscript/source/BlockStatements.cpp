// Branches, loops and With.

#include "vbscript/source/StatementParser.h"

namespace quillon::vbscript {

Statement* StatementParser::ParseIf() {
    auto node = Begin<IfStatement>(StatementKind::If);
    std::vector<Branch> branches;
    Branch branch{};
    branch.place = node.place;
    Skip();
    branch.condition = ParseExpression();
    Expect(Keyword::Then, numbers::ExpectedThen);
    if (!IsLineEnd()) {
        node.branches = Keep(std::vector<Branch>{branch});
        return ParseSingleLineIf(node);
    }
    branch.body = ParseBlock(BlockEnd::If);
    branches.push_back(branch);
    while (Is(Keyword::ElseIf)) {
        branch.place = Now().place;
        Skip();
        branch.condition = ParseExpression();
        Expect(Keyword::Then, numbers::ExpectedThen);
        branch.body = ParseBlock(BlockEnd::If);
        branches.push_back(branch);
    }
    if (Take(Keyword::Else)) {
        node.otherwise = ParseBlock(BlockEnd::If);
        if (Is(Keyword::Else) || Is(Keyword::ElseIf))
            Fail(numbers::ExpectedEnd);
    }
    Expect(Keyword::End, numbers::ExpectedEnd);
    Expect(Keyword::If, numbers::ExpectedIf);
    node.branches = Keep(branches);
    Statement* statement = Make(node);
    EndStatement();
    return statement;
}

// The rest of a line: `If c Then a: b Else d`; `End If` may stand behind it.
Statement* StatementParser::ParseSingleLineIf(IfStatement node) {
    const Level guard(*this);
    const bool wasSingleLine = std::exchange(m_singleLine, true);
    Branch branch = node.branches.front();
    branch.body = ParseLine();
    if (Take(Keyword::Else))
        node.otherwise = ParseLine();
    if (Is(Keyword::End) && Ahead().keyword == Keyword::If) {
        Skip();
        Skip();
    }
    m_singleLine = wasSingleLine;
    node.branches = Keep(std::vector<Branch>{branch});
    Statement* statement = Make(node);
    EndStatement();
    return statement;
}

Block StatementParser::ParseLine() {
    std::vector<Statement*> statements;
    for (;;) {
        while (Take(TokenKind::Colon)) {
        }
        if (IsLineEnd() || Is(Keyword::Else) || (Is(Keyword::End) && Ahead().keyword == Keyword::If))
            return Keep(statements);
        if (Statement* statement = ParseStatement())
            statements.push_back(statement);
    }
}

Statement* StatementParser::ParseSelect() {
    auto node = Begin<SelectStatement>(StatementKind::Select);
    Skip();
    Expect(Keyword::Case, numbers::ExpectedCase);
    node.subject = ParseExpression();
    SkipSeparators();
    std::vector<SelectCase> cases;
    bool hasElse = false;
    while (Is(Keyword::Case)) {
        SelectCase part{};
        part.place = Now().place;
        Skip();
        if (hasElse)
            Fail(numbers::SyntaxError);
        if (Take(Keyword::Else)) {
            hasElse = true;
            node.otherwise = ParseBlock(BlockEnd::Case);
            continue;
        }
        std::vector<Expression*> values;
        do
            values.push_back(ParseExpression());
        while (Take(TokenKind::Comma));
        part.values = Keep(values);
        part.body = ParseBlock(BlockEnd::Case);
        cases.push_back(part);
    }
    Expect(Keyword::End, numbers::ExpectedEnd);
    Expect(Keyword::Select, numbers::ExpectedSelect);
    node.cases = Keep(cases);
    return Make(node);
}

NameId StatementParser::ParseForVariable() {
    const NameId name = TakeName();
    if (Is(TokenKind::Dot) || Is(TokenKind::OpenBracket))
        Fail(numbers::InvalidForVariable);
    MarkAssigned(name);
    return name;
}

Statement* StatementParser::ParseFor() {
    auto node = Begin<ForStatement>(StatementKind::For);
    Skip();
    if (Take(Keyword::Each))
        return ParseForEach(node.place);
    node.variable = ParseForVariable();
    Expect(TokenKind::Equal, numbers::ExpectedEquals);
    node.from = ParseExpression();
    Expect(Keyword::To, numbers::ExpectedTo);
    node.to = ParseExpression();
    if (Take(Keyword::Step))
        node.step = ParseExpression();
    EndStatement();
    ++m_forDepth;
    node.body = ParseBlock(BlockEnd::Next);
    --m_forDepth;
    node.end = Now().place;
    Expect(Keyword::Next, numbers::ExpectedNext);
    return Make(node);
}

Statement* StatementParser::ParseForEach(Place place) {
    ForEachStatement node{};
    node.kind = StatementKind::ForEach;
    node.place = place;
    node.variable = ParseForVariable();
    Expect(Keyword::In, numbers::ExpectedIn);
    node.collection = ParseExpression();
    EndStatement();
    ++m_forDepth;
    node.body = ParseBlock(BlockEnd::Next);
    --m_forDepth;
    node.end = Now().place;
    Expect(Keyword::Next, numbers::ExpectedNext);
    return Make(node);
}

Statement* StatementParser::ParseDo() {
    auto node = Begin<DoStatement>(StatementKind::Do);
    Skip();
    node.loop = LoopKind::Forever;
    if (Is(Keyword::While) || Is(Keyword::Until)) {
        node.loop = Is(Keyword::While) ? LoopKind::WhileBefore : LoopKind::UntilBefore;
        Skip();
        node.condition = ParseExpression();
    } else if (!IsStatementEnd()) {
        Fail(numbers::ExpectedWhileUntilOrEnd);
    }
    EndStatement();
    ++m_doDepth;
    node.body = ParseBlock(BlockEnd::Loop);
    --m_doDepth;
    node.end = Now().place;
    Expect(Keyword::Loop, numbers::ExpectedLoop);
    if (Is(Keyword::While) || Is(Keyword::Until)) {
        if (node.loop != LoopKind::Forever)
            Fail(numbers::ExpectedEndOfStatement);
        node.loop = Is(Keyword::While) ? LoopKind::WhileAfter : LoopKind::UntilAfter;
        Skip();
        node.condition = ParseExpression();
    } else if (node.loop == LoopKind::Forever && IsName()) {
        Fail(numbers::ExpectedWhileUntilOrEnd);
    }
    return Make(node);
}

Statement* StatementParser::ParseWhile() {
    auto node = Begin<DoStatement>(StatementKind::Do);
    Skip();
    node.loop = LoopKind::WhileBefore;
    node.isWhileWend = true;
    node.condition = ParseExpression();
    EndStatement();
    node.body = ParseBlock(BlockEnd::Wend);
    node.end = Now().place;
    Expect(Keyword::Wend, numbers::ExpectedWend);
    return Make(node);
}

Statement* StatementParser::ParseWith() {
    auto node = Begin<WithStatement>(StatementKind::With);
    Skip();
    node.object = ParseExpression();
    EndStatement();
    ++m_withDepth;
    node.body = ParseBlock(BlockEnd::With);
    --m_withDepth;
    Expect(Keyword::End, numbers::ExpectedEnd);
    Expect(Keyword::With, numbers::ExpectedWith);
    return Make(node);
}

} // namespace quillon::vbscript
