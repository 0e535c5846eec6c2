#include "practice/tsql/ParseDefinitions.h"

#include "practice/tsql/ParseExpressions.h"
#include "practice/tsql/ParseNames.h"

namespace quillon::practice::tsql {

namespace {

IdentityDefinition ParseIdentity(ParseState& state) {
    IdentityDefinition identity;
    state.Expect(Keyword::Identity);
    if (state.Accept(Symbol::LeftParen)) {
        identity.seed = ParseSignedDigits(state);
        state.Expect(Symbol::Comma);
        identity.increment = ParseSignedDigits(state);
        state.Expect(Symbol::RightParen);
    }
    return identity;
}

/// NOT FOR REPLICATION, if it is ahead.
bool AcceptNotForReplication(ParseState& state) {
    if (!state.Is(Keyword::Not) || !state.Is(Keyword::For, 1))
        return false;
    state.Take();
    state.Take();
    state.Expect(Keyword::Replication);
    return true;
}

void ParseComputed(ParseState& state, ColumnDefinition& column) {
    column.computedText.begin = state.At().offset;
    column.computed = ParseValue(state);
    column.computedText.end = state.LastEnd();
}

void RefuseColumnFeature(const ParseState& state) {
    static constexpr std::string_view refused[] = {"FILESTREAM", "MASKED", "ENCRYPTED", "GENERATED",
                                                   "HIDDEN"};
    for (const std::string_view word : refused) {
        if (state.Is(word))
            state.Refuse(word, state.At());
    }
}

/// One attribute of a column; false when none is ahead.
bool ParseColumnAttribute(ParseState& state, ColumnDefinition& column) {
    RefuseColumnFeature(state);
    if (state.Is(Keyword::Collate)) {
        state.Take();
        column.collation = ParseIdentifier(state);
    } else if (state.Is(Keyword::Identity)) {
        column.identity = ParseIdentity(state);
    } else if (AcceptNotForReplication(state)) {
        if (column.identity)
            column.identity->notForReplication = true;
    } else if (state.Accept(Keyword::RowGuidCol)) {
        column.rowGuid = true;
    } else if (state.Accept("SPARSE")) {
        column.sparse = true;
    } else if (state.Accept("PERSISTED")) {
        column.persisted = true;
    } else if (const auto nullable = AcceptNullability(state)) {
        column.nullable = nullable;
    } else if (state.Is(Keyword::Index) && state.IsName(1)) {
        column.indexes.push_back(ParseInlineIndex(state));
    } else {
        return false;
    }
    return true;
}

/// CONSTRAINT name, if it is ahead.
std::string ParseConstraintName(ParseState& state) {
    return state.Accept(Keyword::Constraint) ? ParseIdentifier(state) : std::string();
}

void ParseColumnConstraint(ParseState& state, ColumnDefinition& column) {
    const Position position = state.At();
    std::string name = ParseConstraintName(state);
    if (const auto nullable = AcceptNullability(state)) // NULL and NOT NULL may bear a name, which is dropped
        column.nullable = nullable;
    else
        column.constraints.push_back(ParseConstraint(state, std::move(name), position, true));
}

} // namespace

bool AtConstraint(const ParseState& state) {
    return state.Is(Keyword::Constraint) || state.Is(Keyword::Primary) || state.Is(Keyword::Unique) ||
           state.Is(Keyword::Foreign) || state.Is(Keyword::Check) || state.Is(Keyword::Default) ||
           state.Is(Keyword::References);
}

std::optional<bool> AcceptNullability(ParseState& state) {
    if (state.Accept(Keyword::Null))
        return true;
    if (!state.Is(Keyword::Not) || !state.Is(Keyword::Null, 1))
        return std::nullopt;
    state.Take();
    state.Take();
    return false;
}

ColumnDefinition ParseColumn(ParseState& state) {
    ColumnDefinition column;
    column.position = state.At();
    column.name = ParseIdentifier(state);
    if (state.Accept(Keyword::As)) {
        ParseComputed(state, column);
    } else if (state.IsName() || state.Is(Keyword::National) || state.Is(Keyword::Double)) {
        column.type = ParseDataType(state);
    } else if (SameWord(column.name, "timestamp")) {
        column.type = DataType{};
        column.type->name.parts = {"timestamp"};
    } else {
        state.Fail(173, {column.name}, column.position);
    }
    for (;;) {
        if (AtConstraint(state))
            ParseColumnConstraint(state, column);
        else if (!ParseColumnAttribute(state, column))
            return column;
    }
}

void ParseTableElement(ParseState& state, TableDefinition& definition) {
    const Position position = state.At();
    if (AtConstraint(state)) {
        std::string name = ParseConstraintName(state);
        definition.constraints.push_back(ParseConstraint(state, std::move(name), position, false));
    } else if (state.Is(Keyword::Index)) {
        definition.indexes.push_back(ParseInlineIndex(state));
    } else if (state.Is("PERIOD") && state.Is(Keyword::For, 1)) {
        state.Refuse("PERIOD FOR SYSTEM_TIME", position);
    } else {
        definition.columns.push_back(ParseColumn(state));
    }
}

TableDefinition ParseTableDefinition(ParseState& state) {
    TableDefinition definition;
    state.Expect(Symbol::LeftParen);
    do {
        if (state.Is(Symbol::RightParen) && !definition.columns.empty())
            break; // a comma too many before the bracket is taken
        ParseTableElement(state, definition);
    } while (state.Accept(Symbol::Comma));
    state.Expect(Symbol::RightParen);
    return definition;
}

} // namespace quillon::practice::tsql
