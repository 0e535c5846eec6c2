#include "practice/tsql/ParseDml.h"

#include "practice/tsql/ParseExecute.h"
#include "practice/tsql/ParseExpressions.h"
#include "practice/tsql/ParseNames.h"
#include "practice/tsql/ParseQueries.h"

namespace quillon::practice::tsql {

namespace {

OutputClause ParseOutputClause(ParseState& state) {
    OutputClause clause;
    clause.items = ParseSelectList(state);
    if (state.Accept(Keyword::Into)) {
        clause.hasInto = true;
        clause.into.position = state.At();
        if (state.Is(TokenKind::Variable)) {
            clause.into.variable = ParseVariableName(state);
            state.RequireTable(clause.into.variable, clause.into.position);
        } else {
            clause.into.name = ParseName(state);
        }
        if (state.Is(Symbol::LeftParen))
            clause.intoColumns = ParseNameList(state);
    }
    return clause;
}

void ParseInsertSource(ParseState& state, InsertStatement& insert) {
    if (state.Accept(Keyword::Values)) {
        constexpr std::size_t mostRows = 1000;
        state.columnsRefused = true;
        insert.rows = ParseRows(state);
        if (insert.rows.size() > mostRows)
            state.Fail(10738, {}, insert.position);
        state.columnsRefused = false;
    } else if (state.Is(Keyword::Select) || state.Is(Symbol::LeftParen)) {
        insert.source = InsertSource::Query;
        insert.query = std::make_unique<Query>();
        ParseQuery(state, *insert.query, QueryPlace::Statement);
    } else if (state.Is(Keyword::Exec) || state.Is(Keyword::Execute)) {
        insert.source = InsertSource::Execute;
        insert.execute = ParseExecute(state);
    } else if (state.Accept(Keyword::Default)) {
        state.Expect(Keyword::Values);
        insert.source = InsertSource::Defaults;
    } else {
        state.FailHere();
    }
}

/// The size of batches and the order of the rows are hints to which nothing need answer.
void ParseBulkOption(ParseState& state, BulkOptions& options) {
    if (state.Accept("CHECK_CONSTRAINTS")) {
        options.checkConstraints = true;
    } else if (state.Accept("FIRE_TRIGGERS")) {
        options.fireTriggers = true;
    } else if (state.Accept("KEEP_NULLS")) {
        options.keepNulls = true;
    } else if (state.Accept("ROWS_PER_BATCH") || state.Accept("KILOBYTES_PER_BATCH")) {
        state.Expect(Symbol::Equal);
        state.Take();
    } else if (state.Accept(Keyword::Order)) {
        state.Expect(Symbol::LeftParen);
        do {
            ParseName(state);
            if (!state.Accept(Keyword::Asc))
                state.Accept(Keyword::Desc);
        } while (state.Accept(Symbol::Comma));
        state.Expect(Symbol::RightParen);
    } else if (!state.Accept("TABLOCK")) {
        state.FailHere();
    }
}

/// The types are those of the rows that follow, which tell them again.
void ParseInsertBulk(ParseState& state, InsertStatement& insert) {
    insert.source = InsertSource::Bulk;
    insert.target.position = state.At();
    insert.target.name = ParseName(state);
    insert.hasColumns = true;
    state.Expect(Symbol::LeftParen);
    do {
        insert.columns.push_back(ParseName(state));
        ParseDataType(state);
        if (state.Accept(Keyword::Collate))
            state.Take();
    } while (state.Accept(Symbol::Comma));
    state.Expect(Symbol::RightParen);
    if (!state.Accept(Keyword::With))
        return;
    state.Expect(Symbol::LeftParen);
    do {
        ParseBulkOption(state, insert.bulk);
    } while (state.Accept(Symbol::Comma));
    state.Expect(Symbol::RightParen);
}

/// `@v = column = value` has a column between its two signs.
void ParseVariableClause(ParseState& state, SetClause& clause) {
    clause.variable = ParseVariableName(state);
    state.RequireScalar(clause.variable, clause.position);
    const auto op = AcceptAssignment(state);
    if (!op)
        state.FailHere();
    clause.op = *op;
    clause.value = ParseValueOrDefault(state);
    if (clause.value->kind != ExpressionKind::Column || clause.op != AssignmentOperator::Set)
        return;
    if (const auto second = AcceptAssignment(state)) {
        clause.column = As<ColumnReference>(clause.value).name;
        clause.op = *second;
        clause.value = ParseValueOrDefault(state);
    }
}

SetClause ParseSetClause(ParseState& state) {
    SetClause clause;
    clause.position = state.At();
    if (state.Is(TokenKind::Variable)) {
        ParseVariableClause(state, clause);
        return clause;
    }
    clause.column = ParseName(state);
    if (state.Is(Symbol::LeftParen) && SameWord(clause.column.Last(), "WRITE"))
        state.Refuse(".WRITE", clause.position);
    const auto op = AcceptAssignment(state);
    if (!op)
        state.FailHere();
    clause.op = *op;
    clause.value = ParseValueOrDefault(state);
    return clause;
}

template <class Changing>
void ParseChangeWhere(ParseState& state, Changing& statement) {
    if (state.Accept(Keyword::From))
        statement.from = ParseFrom(state);
    if (!state.Accept(Keyword::Where))
        return;
    if (state.Is(Keyword::Current) && state.Is(Keyword::Of, 1)) {
        const Position position = state.At();
        state.Take();
        state.Take();
        const CursorName cursor = ParseCursorName(state);
        statement.currentOf = CurrentOf{cursor.name, cursor.global, cursor.variable, position};
    } else {
        statement.where = ParseCondition(state);
    }
}

} // namespace

DmlTarget ParseDmlTarget(ParseState& state) {
    DmlTarget target;
    target.position = state.At();
    if (state.Is(TokenKind::Variable)) {
        target.variable = ParseVariableName(state);
        state.RequireTable(target.variable, target.position);
    } else {
        if (state.Is(Keyword::OpenQuery) || state.Is(Keyword::OpenRowset) ||
            state.Is(Keyword::OpenDataSource))
            state.Refuse(UpperWord(state.Value(state.Peek())), state.At());
        target.name = ParseName(state);
    }
    if (state.Is(Keyword::With) && state.Is(Symbol::LeftParen, 1))
        target.hints = ParseTableHints(state);
    return target;
}

std::vector<OutputClause> ParseOutput(ParseState& state) {
    std::vector<OutputClause> clauses;
    while (state.Accept("OUTPUT"))
        clauses.push_back(ParseOutputClause(state));
    return clauses;
}

std::vector<SetClause> ParseSetClauses(ParseState& state) {
    std::vector<SetClause> clauses;
    do {
        clauses.push_back(ParseSetClause(state));
    } while (state.Accept(Symbol::Comma));
    return clauses;
}

std::vector<Name> ParseColumnNames(ParseState& state) {
    std::vector<Name> columns;
    state.Expect(Symbol::LeftParen);
    do {
        columns.push_back(ParseName(state));
    } while (state.Accept(Symbol::Comma));
    state.Expect(Symbol::RightParen);
    return columns;
}

StatementPtr ParseInsert(ParseState& state) {
    auto insert = Begin<InsertStatement>(state);
    state.Expect(Keyword::Insert);
    if (state.Accept(Keyword::Bulk)) {
        ParseInsertBulk(state, *insert);
        return insert;
    }
    insert->top = ParseTop(state);
    state.Accept(Keyword::Into);
    insert->target = ParseDmlTarget(state);
    if (state.Is(Symbol::LeftParen) && !state.IsQueryBracket()) {
        insert->hasColumns = true;
        insert->columns = ParseColumnNames(state);
    }
    insert->output = ParseOutput(state);
    ParseInsertSource(state, *insert);
    insert->hints = ParseQueryHints(state);
    return insert;
}

StatementPtr ParseUpdate(ParseState& state) {
    auto update = Begin<UpdateStatement>(state);
    state.Expect(Keyword::Update);
    update->top = ParseTop(state);
    update->target = ParseDmlTarget(state);
    state.Expect(Keyword::Set);
    update->sets = ParseSetClauses(state);
    update->output = ParseOutput(state);
    ParseChangeWhere(state, *update);
    update->hints = ParseQueryHints(state);
    return update;
}

StatementPtr ParseDelete(ParseState& state) {
    auto statement = Begin<DeleteStatement>(state);
    state.Expect(Keyword::Delete);
    statement->top = ParseTop(state);
    state.Accept(Keyword::From);
    statement->target = ParseDmlTarget(state);
    statement->output = ParseOutput(state);
    ParseChangeWhere(state, *statement);
    statement->hints = ParseQueryHints(state);
    return statement;
}

StatementPtr ParseTruncate(ParseState& state) {
    auto truncate = Begin<TruncateStatement>(state);
    state.Expect(Keyword::Truncate);
    state.Expect(Keyword::Table);
    truncate->table = ParseName(state);
    if (state.Is(Keyword::With) && state.Is(Symbol::LeftParen, 1))
        state.Refuse("TRUNCATE TABLE WITH PARTITIONS", state.At());
    return truncate;
}

} // namespace quillon::practice::tsql
