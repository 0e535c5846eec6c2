#include "practice/tsql/ParseDefinitions.h"
#include "practice/tsql/ParseNames.h"
#include "practice/tsql/ParseTables.h"

namespace quillon::practice::tsql {

namespace {

void ParseAdd(ParseState& state, AlterTableStatement& statement) {
    statement.action = AlterTableAction::Add;
    const bool bracket = state.Accept(Symbol::LeftParen); // older scripts put the list in brackets
    do {
        ParseTableElement(state, statement.added);
    } while (state.Accept(Symbol::Comma));
    if (bracket)
        state.Expect(Symbol::RightParen);
}

void ParseColumnProperty(ParseState& state, AlterTableStatement& statement) {
    statement.action = AlterTableAction::ColumnProperty;
    statement.addProperty = state.Is(Keyword::Add);
    state.Take();
    if (state.Accept(Keyword::RowGuidCol)) {
        statement.property = "ROWGUIDCOL";
    } else if (state.Accept(Keyword::Not)) {
        state.Expect(Keyword::For);
        state.Expect(Keyword::Replication);
        statement.property = "NOT FOR REPLICATION";
    } else if (state.Is("PERSISTED") || state.Is("SPARSE")) {
        statement.property = TakeWord(state);
    } else {
        state.Refuse("ALTER COLUMN ADD or DROP " + UpperWord(state.Value(state.Peek())), state.At());
    }
}

void ParseAlterColumn(ParseState& state, AlterTableStatement& statement) {
    state.Expect(Keyword::Column);
    if (state.IsName() && (state.Is(Keyword::Add, 1) || state.Is(Keyword::Drop, 1))) {
        statement.columnName = ParseIdentifier(state);
        ParseColumnProperty(state, statement);
        return;
    }
    statement.action = AlterTableAction::AlterColumn;
    statement.column = ParseColumn(state);
    statement.columnName = statement.column.name;
    if (state.Is(Keyword::With) && state.Is(Symbol::LeftParen, 1)) {
        state.Take();
        statement.options = ParseSettings(state);
    }
}

/// DROP CONSTRAINT a, COLUMN b, c: a kind holds until another one is named.
void ParseDrops(ParseState& state, AlterTableStatement& statement) {
    statement.action = AlterTableAction::Drop;
    bool column = false;
    bool ifExists = false;
    do {
        if (state.Is(Keyword::Column) || state.Is(Keyword::Constraint)) {
            column = state.Is(Keyword::Column);
            state.Take();
            ifExists = false;
        }
        if (state.Accept(Keyword::If)) {
            state.Expect(Keyword::Exists);
            ifExists = true;
        }
        AlterTableDrop drop;
        drop.column = column;
        drop.ifExists = ifExists;
        drop.position = state.At();
        drop.name = ParseIdentifier(state);
        statement.drops.push_back(std::move(drop));
        if (state.Is(Keyword::With) && state.Is(Symbol::LeftParen, 1)) {
            state.Take();
            statement.options = ParseSettings(state);
        }
    } while (state.Accept(Symbol::Comma));
}

void ParseAllOrNames(ParseState& state, AlterTableStatement& statement) {
    if (state.Accept(Keyword::All)) {
        statement.all = true;
        return;
    }
    do {
        statement.names.push_back(ParseIdentifier(state));
    } while (state.Accept(Symbol::Comma));
}

void ParseConstraintSwitch(ParseState& state, AlterTableStatement& statement) {
    statement.action = AlterTableAction::Constraints;
    statement.enable = state.Is(Keyword::Check);
    state.Take();
    state.Expect(Keyword::Constraint);
    ParseAllOrNames(state, statement);
}

void ParseTriggerSwitch(ParseState& state, AlterTableStatement& statement) {
    statement.action = AlterTableAction::Triggers;
    statement.enable = state.Is("ENABLE");
    state.Take();
    if (!state.Is(Keyword::Trigger))
        state.Refuse("ALTER TABLE ENABLE or DISABLE " + UpperWord(state.Value(state.Peek())), state.At());
    state.Take();
    ParseAllOrNames(state, statement);
}

} // namespace

StatementPtr ParseAlterTable(ParseState& state, Position position) {
    auto statement = std::make_unique<AlterTableStatement>();
    statement->position = position;
    statement->name = ParseName(state, 3);
    if (state.Accept(Keyword::With)) {
        statement->withCheck = state.Is(Keyword::Check);
        if (!state.Accept(Keyword::Check))
            state.Expect(Keyword::NoCheck);
    }
    if (state.Accept(Keyword::Add)) {
        ParseAdd(state, *statement);
    } else if (state.Accept(Keyword::Alter)) {
        ParseAlterColumn(state, *statement);
    } else if (state.Accept(Keyword::Drop)) {
        ParseDrops(state, *statement);
    } else if (state.Is(Keyword::Check) || state.Is(Keyword::NoCheck)) {
        ParseConstraintSwitch(state, *statement);
    } else if (state.Is("ENABLE") || state.Is("DISABLE")) {
        ParseTriggerSwitch(state, *statement);
    } else if (state.Accept(Keyword::Set)) {
        statement->action = AlterTableAction::Set;
        const Position at = state.At();
        statement->options = ParseSettings(state);
        CheckOptions(state, OptionPlace::Table, statement->options, at, "ALTER TABLE");
    } else if (state.Accept("REBUILD")) {
        statement->action = AlterTableAction::Rebuild;
        ParseStorageOptions(state, statement->options, OptionPlace::Index, "ALTER TABLE");
    } else if (state.Is("SWITCH")) {
        state.Refuse("ALTER TABLE SWITCH", state.At());
    } else {
        state.FailHere();
    }
    return statement;
}

} // namespace quillon::practice::tsql
