// Blocks and the simple statements; loops and branches are in BlockStatements.cpp.

#include "vbscript/source/StatementParser.h"

namespace quillon::vbscript {

Keyword StatementParser::EndWordOf(ProcedureKind kind) noexcept {
    return kind == ProcedureKind::Sub        ? Keyword::Sub
           : kind == ProcedureKind::Function ? Keyword::Function
                                             : Keyword::Property;
}

void StatementParser::SkipSeparators() {
    while (Is(TokenKind::NewLine) || Is(TokenKind::Colon))
        Skip();
}

void StatementParser::EndStatement() {
    if (IsStatementEnd())
        return;
    const bool isEnd = Is(Keyword::End);
    if (m_singleLine && (Is(Keyword::Else) || (isEnd && Ahead().keyword == Keyword::If)))
        return;
    const Keyword ended = m_inProcedure ? EndWordOf(m_procedureKind) : Keyword::Class;
    if ((m_inProcedure || m_inClass) && isEnd && Ahead().keyword == ended)
        return; // `Sub s() x = 1 End Sub`
    Fail(numbers::ExpectedEndOfStatement);
}

// `End` with any other word ends a block too: the block's own end word is then what is missing.
bool StatementParser::AtBlockEnd(BlockEnd end) const {
    if (end == BlockEnd::Text)
        return false;
    if (Is(Keyword::End))
        return true;
    switch (end) {
    case BlockEnd::If: return Is(Keyword::Else) || Is(Keyword::ElseIf);
    case BlockEnd::Case: return Is(Keyword::Case);
    case BlockEnd::Loop: return Is(Keyword::Loop);
    case BlockEnd::Next: return Is(Keyword::Next);
    case BlockEnd::Wend: return Is(Keyword::Wend);
    default: return false;
    }
}

Block StatementParser::ParseBlock(BlockEnd end) {
    const Level guard(*this);
    const bool wasSingleLine = std::exchange(m_singleLine, false);
    std::vector<Statement*> statements;
    for (;;) {
        SkipSeparators();
        if (Is(TokenKind::EndOfText) || AtBlockEnd(end))
            break;
        if (!m_inProcedure && ParseModuleItem(end == BlockEnd::Text))
            continue;
        if (Statement* statement = ParseStatement())
            statements.push_back(statement);
    }
    m_singleLine = wasSingleLine;
    return Keep(statements);
}

// Null for a statement that only declares.
Statement* StatementParser::ParseStatement() {
    if (IsName() || Is(TokenKind::Dot) || Is(Keyword::Me)) {
        Statement* statement = ParseNameStatement();
        EndStatement();
        return statement;
    }
    if (!Is(TokenKind::Name))
        Fail(numbers::ExpectedStatement);
    return ParseKeywordStatement();
}

Statement* StatementParser::ParseKeywordStatement() {
    Statement* statement = nullptr;
    switch (Now().keyword) {
    case Keyword::Dim: statement = ParseDimStatement(); break;
    case Keyword::Const: ParseConst(); break;
    case Keyword::Call: statement = ParseCall(); break;
    case Keyword::Set: statement = ParseSet(); break;
    case Keyword::ReDim: statement = ParseReDim(); break;
    case Keyword::Erase: statement = ParseErase(); break;
    case Keyword::If: return ParseIf();
    case Keyword::Select: statement = ParseSelect(); break;
    case Keyword::For: statement = ParseFor(); break;
    case Keyword::Do: statement = ParseDo(); break;
    case Keyword::While: statement = ParseWhile(); break;
    case Keyword::With: statement = ParseWith(); break;
    case Keyword::Exit: statement = ParseExit(); break;
    case Keyword::On: statement = ParseOnError(); break;
    case Keyword::Stop:
        statement = Make(Begin<Statement>(StatementKind::Stop));
        Skip();
        break;
    case Keyword::Loop: Fail(numbers::LoopWithoutDo);
    case Keyword::Next: Fail(numbers::UnexpectedNext);
    case Keyword::Sub: // these stand at the top of a module only
    case Keyword::Function:
    case Keyword::Class:
    case Keyword::Public:
    case Keyword::Private: Fail(numbers::SyntaxError);
    default: Fail(numbers::ExpectedStatement);
    }
    EndStatement();
    return statement;
}

// An assignment or a call. What `f (x)` means shows only behind the bracket: the beginning of f's first
// argument, a subscript of what is assigned to, or a link in a chain.
Statement* StatementParser::ParseNameStatement() {
    const Place place = Now().place;
    Expression* chain = ParsePrimary();
    for (;;) {
        if (Is(TokenKind::Equal))
            return FinishAssign(chain, false, place);
        if (!Is(TokenKind::OpenBracket)) {
            Expression* longer = ParsePostfix(chain, m_withDepth == 0);
            if (longer == nullptr)
                return FinishCall(chain, ParseArguments(false), place);
            chain = longer;
            continue;
        }
        const std::size_t bracket = m_at;
        const std::size_t marks = m_scope->passed.size();
        Expression* longer = ParsePostfix(chain, true);
        const bool isLink = Is(TokenKind::Equal) || Is(TokenKind::OpenBracket) ||
                            (Is(TokenKind::Dot) && (m_withDepth == 0 || !Now().blankBefore));
        if (isLink) {
            chain = longer;
            continue;
        }
        const auto* call = static_cast<const CallExpression*>(longer);
        const bool ends = IsStatementEnd() || Is(Keyword::Else) || Is(Keyword::End);
        if (ends && call->arguments.empty())
            return FinishCall(chain, {}, place);
        if (ends && call->arguments.size() > 1)
            Fail(numbers::BracketsOnSubCall);
        m_at = bracket;
        m_scope->passed.resize(marks);
        return FinishCall(chain, ParseArguments(false), place);
    }
}

Statement* StatementParser::FinishCall(Expression* callee, std::span<Expression* const> arguments,
                                       Place place) {
    CallStatement node{};
    node.kind = StatementKind::Call;
    node.place = place;
    node.callee = callee;
    node.arguments = arguments;
    return Make(node);
}

Statement* StatementParser::FinishAssign(Expression* target, bool isSet, Place place) {
    if (target->kind == ExpressionKind::Me)
        Fail(numbers::InvalidMe);
    Expect(TokenKind::Equal, numbers::ExpectedEquals);
    AssignStatement node{};
    node.kind = StatementKind::Assign;
    node.place = place;
    node.isSet = isSet;
    node.target = target;
    node.value = ParseExpression();
    for (const Expression* part = target; part != nullptr;) {
        if (part->kind == ExpressionKind::Name)
            MarkAssigned(static_cast<const NameExpression*>(part)->name);
        part =
            part->kind == ExpressionKind::Call ? static_cast<const CallExpression*>(part)->callee : nullptr;
    }
    return Make(node);
}

Statement* StatementParser::ParseDimStatement() {
    auto node = Begin<DimStatement>(StatementKind::Dim);
    Skip();
    std::vector<Declaration> arrays, variables;
    ParseDim(variables, true);
    for (Declaration& variable : variables) {
        variable.isStatement = true;
        if (variable.isArray)
            arrays.push_back(variable);
        m_scope->variables.push_back(variable);
    }
    node.arrays = Keep(arrays);
    return arrays.empty() ? nullptr : Make(node);
}

Statement* StatementParser::ParseCall() {
    const Place place = Now().place;
    Skip();
    Expression* callee = ParseChain();
    if (callee->kind != ExpressionKind::Call)
        return FinishCall(WithoutBrackets(callee), {}, place);
    const auto* call = static_cast<const CallExpression*>(callee);
    return FinishCall(call->callee, call->arguments, place);
}

Statement* StatementParser::ParseSet() {
    const Place place = Now().place;
    Skip();
    Expression* target = ParsePrimary();
    while (Expression* longer = ParsePostfix(target, true))
        target = longer;
    return FinishAssign(target, true, place);
}

Statement* StatementParser::ParseReDim() {
    auto node = Begin<ReDimStatement>(StatementKind::ReDim);
    Skip();
    node.preserve = Take(Keyword::Preserve);
    std::vector<ReDimItem> items;
    do {
        ReDimItem item{};
        item.name = TakeName();
        MarkAssigned(item.name);
        m_scope->redimmed.push_back(item.name);
        Expect(TokenKind::OpenBracket, numbers::ExpectedOpenBracket);
        std::vector<Expression*> bounds;
        do
            bounds.push_back(ParseExpression());
        while (Take(TokenKind::Comma));
        Expect(TokenKind::CloseBracket, numbers::ExpectedCloseBracket);
        item.bounds = Keep(bounds);
        items.push_back(item);
    } while (Take(TokenKind::Comma));
    node.items = Keep(items);
    return Make(node);
}

Statement* StatementParser::ParseErase() {
    auto node = Begin<EraseStatement>(StatementKind::Erase);
    Skip();
    std::vector<NameId> names;
    do {
        names.push_back(TakeName());
        MarkAssigned(names.back());
    } while (Take(TokenKind::Comma));
    node.names = Keep(names);
    return Make(node);
}

Statement* StatementParser::ParseExit() {
    auto node = Begin<ExitStatement>(StatementKind::Exit);
    Skip();
    bool fits = false;
    switch (Now().keyword) {
    case Keyword::Do:
        node.exit = ExitKind::Do;
        fits = m_doDepth > 0;
        break;
    case Keyword::For:
        node.exit = ExitKind::For;
        fits = m_forDepth > 0;
        break;
    case Keyword::Sub:
    case Keyword::Function:
    case Keyword::Property: {
        node.exit = ExitKind::Procedure;
        fits = m_inProcedure && Is(EndWordOf(m_procedureKind));
        break;
    }
    default: break;
    }
    if (!fits)
        Fail(numbers::InvalidExit);
    Skip();
    return Make(node);
}

Statement* StatementParser::ParseOnError() {
    auto node = Begin<OnErrorStatement>(StatementKind::OnError);
    Skip();
    Expect(Keyword::Error, numbers::SyntaxError);
    if (Take(Keyword::Resume)) {
        Expect(Keyword::Next, numbers::ExpectedNext);
        node.resumeNext = true;
        return Make(node);
    }
    Expect(Keyword::GoTo, numbers::SyntaxError);
    if (!Is(TokenKind::Integer) || Now().number != 0)
        Fail(numbers::SyntaxError);
    Skip();
    return Make(node);
}

} // namespace quillon::vbscript
