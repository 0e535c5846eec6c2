#include "practice/tsql/ParseTables.h"

#include "practice/tsql/ParseDefinitions.h"
#include "practice/tsql/ParseExpressions.h"
#include "practice/tsql/ParseNames.h"
#include "practice/tsql/ParseStatements.h"

namespace quillon::practice::tsql {

StatementPtr ParseCreateTable(ParseState& state, Position position) {
    auto statement = std::make_unique<CreateTableStatement>();
    statement->position = position;
    statement->name = ParseName(state, 3);
    if (state.Is(Keyword::As))
        state.Refuse("CREATE TABLE AS", state.At());
    statement->definition = ParseTableDefinition(state);
    ParseStorageOptions(state, statement->options, OptionPlace::Table, "CREATE TABLE");
    if (state.Is(Keyword::With)) // the options may follow the file group
        ParseStorageOptions(state, statement->options, OptionPlace::Table, "CREATE TABLE");
    return statement;
}

StatementPtr ParseCreateIndex(ParseState& state, Position position) {
    auto statement = std::make_unique<CreateIndexStatement>();
    IndexDefinition& index = statement->index;
    statement->position = position;
    index.position = position;
    index.unique = state.Accept(Keyword::Unique);
    index.clustered = AcceptClustered(state).value_or(false);
    if (state.Is("COLUMNSTORE"))
        state.Refuse("columnstore indexes", state.At());
    state.Expect(Keyword::Index);
    index.name = ParseIdentifier(state);
    state.Expect(Keyword::On);
    statement->table = ParseName(state, 3);
    index.columns = ParseIndexColumns(state);
    ParseIndexTail(state, index);
    for (const OptionSetting& option : index.options) {
        if (option.name == "DROP_EXISTING" && !SameWord(option.value, "OFF"))
            statement->dropExisting = true;
    }
    return statement;
}

StatementPtr ParseAlterIndex(ParseState& state, Position position) {
    auto statement = std::make_unique<AlterIndexStatement>();
    using Action = AlterIndexStatement::Action;
    statement->position = position;
    if (!state.Accept(Keyword::All))
        statement->index = ParseIdentifier(state);
    state.Expect(Keyword::On);
    statement->table = ParseName(state, 3);
    if (state.Accept(Keyword::Set)) {
        statement->action = Action::Set;
        const Position at = state.At();
        statement->options = ParseSettings(state);
        CheckOptions(state, OptionPlace::Index, statement->options, at, "ALTER INDEX");
        return statement;
    }
    if (state.Accept("DISABLE"))
        statement->action = Action::Disable;
    else if (state.Accept("REORGANIZE"))
        statement->action = Action::Reorganize;
    else
        state.Expect("REBUILD");
    if (state.Is("PARTITION"))
        state.Refuse("index partitions", state.At());
    ParseStorageOptions(state, statement->options, OptionPlace::Index, "ALTER INDEX");
    return statement;
}

StatementPtr ParseCreateStatistics(ParseState& state, Position position) {
    auto statement = std::make_unique<CreateStatisticsStatement>();
    statement->position = position;
    statement->name = ParseIdentifier(state);
    state.Expect(Keyword::On);
    statement->table = ParseName(state, 3);
    statement->columns = ParseNameList(state);
    std::vector<OptionSetting> sampling;
    ParseStorageOptions(state, sampling, OptionPlace::Statistics, "CREATE STATISTICS");
    return statement;
}

StatementPtr ParseUpdateStatistics(ParseState& state) {
    auto statement = Begin<UpdateStatisticsStatement>(state);
    state.Expect(Keyword::Update);
    state.Expect(Keyword::Statistics);
    statement->table = ParseName(state, 3);
    if (state.Is(Symbol::LeftParen))
        ParseNameList(state);
    else if (state.IsName() && !state.Is(Symbol::Colon, 1))
        state.Take();
    std::vector<OptionSetting> sampling;
    ParseStorageOptions(state, sampling, OptionPlace::Statistics, "UPDATE STATISTICS");
    return statement;
}

StatementPtr ParseCreateType(ParseState& state, Position position) {
    auto statement = std::make_unique<CreateTypeStatement>();
    statement->position = position;
    statement->name = ParseName(state, 2);
    if (state.Accept(Keyword::From)) {
        statement->base = ParseDataType(state);
        statement->nullable = AcceptNullability(state);
        return statement;
    }
    if (state.Is(Keyword::External) || state.Is("EXTERNAL"))
        state.Refuse("CREATE TYPE EXTERNAL NAME", state.At());
    state.Expect(Keyword::As);
    state.Expect(Keyword::Table);
    statement->table = ParseTableDefinition(state);
    return statement;
}

StatementPtr ParseCreateSynonym(ParseState& state, Position position) {
    auto statement = std::make_unique<CreateSynonymStatement>();
    statement->position = position;
    statement->name = ParseName(state, 2);
    state.Expect(Keyword::For);
    statement->target = ParseName(state, 4);
    return statement;
}

StatementPtr ParseCreateSchema(ParseState& state, Position position) {
    auto statement = std::make_unique<CreateSchemaStatement>();
    statement->position = position;
    if (state.IsName())
        statement->name = ParseIdentifier(state);
    if (state.Accept(Keyword::Authorization))
        statement->owner = ParseIdentifier(state);
    else if (statement->name.empty())
        state.FailHere();
    while (state.Is(Keyword::Create) || state.Is(Keyword::Grant) || state.Is(Keyword::Revoke) ||
           state.Is(Keyword::Deny))
        statement->elements.push_back(ParseStatement(state));
    return statement;
}

StatementPtr ParseAlterSchema(ParseState& state, Position position) {
    auto statement = std::make_unique<AlterSchemaTransferStatement>();
    statement->position = position;
    statement->schema = ParseIdentifier(state);
    state.Expect("TRANSFER");
    statement->securableClass = "OBJECT";
    if (state.Is(Symbol::DoubleColon, 1)) {
        statement->securableClass = TakeWord(state);
        state.Take();
    }
    statement->object = ParseName(state, 2);
    return statement;
}

StatementPtr ParseDefaultOrRule(ParseState& state, Position position, bool rule) {
    auto statement = std::make_unique<CreateDefaultOrRuleStatement>();
    statement->position = position;
    statement->rule = rule;
    statement->source = std::string(state.Source());
    statement->name = ParseName(state, 2);
    state.Expect(Keyword::As);
    statement->expressionText.begin = state.At().offset;
    if (rule && state.Is(TokenKind::Variable)) {
        // The one variable of a rule needs no declaration: it stands for the value.
        state.Declare(state.Value(state.Peek()), VariableKind::Scalar, state.At());
    }
    statement->expression = rule ? ParseCondition(state) : ParseValue(state);
    statement->expressionText.end = state.LastEnd();
    return statement;
}

} // namespace quillon::practice::tsql
