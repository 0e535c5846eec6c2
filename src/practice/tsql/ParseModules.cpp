#include "practice/tsql/ParseModules.h"

#include "practice/tsql/ModuleChecks.h"
#include "practice/tsql/ParseDefinitions.h"
#include "practice/tsql/ParseExecute.h"
#include "practice/tsql/ParseExpressions.h"
#include "practice/tsql/ParseNames.h"
#include "practice/tsql/ParseQueries.h"
#include "practice/tsql/ParseStatements.h"
#include "practice/tsql/ParseVariables.h"

namespace quillon::practice::tsql {

namespace {

template <class Module>
std::unique_ptr<Module> BeginModule(ParseState& state, const ModuleHead& head, std::string_view words) {
    auto module = std::make_unique<Module>();
    module->position = head.position;
    module->verb = head.verb;
    module->verbText = head.verbText;
    module->source = std::string(state.Source());
    module->name = ParseName(state, 3);
    if (!module->name.Database().empty())
        state.Fail(166, {words}, module->name.position);
    return module;
}

void ParseModuleOption(ParseState& state, ModuleStatement& module) {
    if (state.Accept("ENCRYPTION")) {
        module.encryption = true;
    } else if (state.Accept("SCHEMABINDING")) {
        module.schemaBinding = true;
    } else if (state.Accept("RECOMPILE")) {
        module.recompile = true;
    } else if (state.Accept(Keyword::Execute) || state.Accept(Keyword::Exec)) {
        if (module.kind == StatementKind::CreateView)
            state.FailHere();
        ParseModuleIdentity(state, module);
    } else if (state.Is("NATIVE_COMPILATION") || state.Is("VIEW_METADATA")) {
        state.Refuse("WITH " + UpperWord(state.Value(state.Peek())), state.At());
    } else {
        state.FailHere();
    }
}

void ParseModuleOptions(ParseState& state, ModuleStatement& module) {
    if (!state.Accept(Keyword::With))
        return;
    do {
        ParseModuleOption(state, module);
    } while (state.Accept(Symbol::Comma));
}

/// All statements up to the end of the batch.
StatementList ParseModuleBody(ParseState& state, ModuleKind kind) {
    state.module = kind;
    state.terminated = true;
    if (state.Is(Keyword::External))
        state.Refuse("EXTERNAL NAME", state.At());
    StatementList body = ParseStatementsToEnd(state);
    if (body.empty())
        state.FailHere();
    return body;
}

/// A word that says something and is passed over, like RETURNS NULL ON NULL INPUT.
void ParseFunctionOptions(ParseState& state, CreateFunctionStatement& function) {
    if (!state.Accept(Keyword::With))
        return;
    do {
        if (state.Accept("RETURNS")) {
            state.Expect(Keyword::Null);
            function.returnsNullOnNullInput = true;
        } else if (state.Accept("CALLED")) {
        } else {
            ParseModuleOption(state, function);
            continue;
        }
        state.Expect(Keyword::On);
        state.Expect(Keyword::Null);
        state.Expect("INPUT");
    } while (state.Accept(Symbol::Comma));
}

void ParseInlineFunction(ParseState& state, CreateFunctionStatement& function) {
    function.function = FunctionKind::InlineTable;
    const Position options = state.At();
    ParseFunctionOptions(state, function);
    if (!function.executeAs.empty())
        state.Refuse("EXECUTE AS of an inline function", options);
    state.Accept(Keyword::As);
    state.Expect(Keyword::Return);
    function.inlineQuery = std::make_unique<Query>();
    const bool bracket =
        state.Is(Symbol::LeftParen) && (state.IsQueryBracket() || state.Is(Keyword::With, 1));
    if (bracket)
        state.Take();
    std::vector<CommonTable> with = ParseWith(state);
    ParseQuery(state, *function.inlineQuery, QueryPlace::View);
    function.inlineQuery->with = std::move(with);
    if (bracket)
        state.Expect(Symbol::RightParen);
    state.Accept(Symbol::Semicolon);
}

void ParseFunctionBody(ParseState& state, CreateFunctionStatement& function) {
    ParseFunctionOptions(state, function);
    state.Accept(Keyword::As);
    if (!state.Is(Keyword::Begin))
        state.FailHere();
    function.body = ParseModuleBody(
        state, function.function == FunctionKind::Scalar ? ModuleKind::Function : ModuleKind::TableFunction);
}

Parameter ParseParameter(ParseState& state) {
    Parameter parameter;
    parameter.position = state.At();
    parameter.name = ParseVariableName(state);
    state.Accept(Keyword::As);
    if (state.Accept(Keyword::Cursor)) {
        parameter.cursor = true;
        state.Expect(Keyword::Varying);
    } else {
        parameter.type = ParseDataType(state);
    }
    parameter.nullable = AcceptNullability(state);
    if (state.Accept(Symbol::Equal)) {
        if (state.IsName()) { // a bare word is a text here
            auto word = Begin<Literal>(state);
            word->type = LiteralType::NString;
            word->text = ParseIdentifier(state);
            parameter.defaultValue = Finish(state, std::move(word), 1);
        } else {
            parameter.defaultValue = ParseConstant(state);
        }
    }
    if (state.Is("OUTPUT") || state.Is("OUT")) {
        state.Take();
        parameter.output = true;
    } else if (state.Is("READONLY")) {
        state.Take();
        parameter.readOnly = true;
    }
    state.Declare(parameter.name,
                  parameter.cursor                 ? VariableKind::Cursor
                  : MayBeTableType(parameter.type) ? VariableKind::Unknown
                                                   : VariableKind::Scalar,
                  parameter.position);
    return parameter;
}

void ParseTriggerEvents(ParseState& state, CreateTriggerStatement& trigger) {
    do {
        if (state.Accept(Keyword::Insert))
            trigger.onInsert = true;
        else if (state.Accept(Keyword::Update))
            trigger.onUpdate = true;
        else if (state.Accept(Keyword::Delete))
            trigger.onDelete = true;
        else
            state.FailHere();
    } while (state.Accept(Symbol::Comma));
}

void ParseTriggerTiming(ParseState& state, CreateTriggerStatement& trigger) {
    if (state.Accept("INSTEAD")) {
        state.Expect(Keyword::Of);
        trigger.timing = TriggerTiming::InsteadOf;
    } else if (!state.Accept("AFTER")) {
        state.Expect(Keyword::For);
    }
    ParseTriggerEvents(state, trigger);
    if (state.Is(Keyword::With) && state.Is("APPEND", 1)) {
        state.Take();
        state.Take();
    }
    if (state.Accept(Keyword::Not)) {
        state.Expect(Keyword::For);
        state.Expect(Keyword::Replication);
        trigger.notForReplication = true;
    }
}

} // namespace

std::vector<Parameter> ParseParameterList(ParseState& state) {
    std::vector<Parameter> parameters;
    if (!state.Is(TokenKind::Variable))
        return parameters;
    do {
        parameters.push_back(ParseParameter(state));
    } while (state.Accept(Symbol::Comma));
    return parameters;
}

StatementPtr ParseView(ParseState& state, const ModuleHead& head) {
    auto view = BeginModule<CreateViewStatement>(state, head, "CREATE/ALTER VIEW");
    if (state.Is(Symbol::LeftParen))
        view->columns = ParseNameList(state);
    ParseModuleOptions(state, *view);
    state.Expect(Keyword::As);
    view->query = std::make_unique<Query>();
    view->queryText.begin = state.At().offset;
    std::vector<CommonTable> with = ParseWith(state);
    ParseQuery(state, *view->query, QueryPlace::View);
    view->query->with = std::move(with);
    view->queryText.end = state.LastEnd();
    if (state.Accept(Keyword::With)) {
        state.Expect(Keyword::Check);
        state.Expect(Keyword::Option);
        view->checkOption = true;
    }
    return view;
}

StatementPtr ParseProcedure(ParseState& state, const ModuleHead& head) {
    auto procedure = BeginModule<CreateProcedureStatement>(state, head, "CREATE/ALTER PROCEDURE");
    if (state.Is(Symbol::Semicolon) && state.Is(TokenKind::Integer, 1)) {
        if (state.Value(state.Peek(1)) != "1")
            state.Refuse("numbered procedures", state.At());
        state.Take();
        state.Take();
    }
    const bool bracket = state.Accept(Symbol::LeftParen);
    procedure->parameters = ParseParameterList(state);
    if (bracket)
        state.Expect(Symbol::RightParen);
    ParseModuleOptions(state, *procedure);
    if (state.Is(Keyword::For) && state.Is(Keyword::Replication, 1))
        state.Refuse("procedures FOR REPLICATION", state.At());
    state.Expect(Keyword::As);
    procedure->body = ParseModuleBody(state, ModuleKind::Procedure);
    return procedure;
}

StatementPtr ParseFunction(ParseState& state, const ModuleHead& head) {
    auto function = BeginModule<CreateFunctionStatement>(state, head, "CREATE/ALTER FUNCTION");
    state.Expect(Symbol::LeftParen);
    function->parameters = ParseParameterList(state);
    state.Expect(Symbol::RightParen);
    state.Expect("RETURNS");
    if (state.Accept(Keyword::Table)) {
        ParseInlineFunction(state, *function);
        return function;
    }
    if (state.Is(TokenKind::Variable)) {
        function->function = FunctionKind::MultiStatementTable;
        const Position position = state.At();
        function->tableVariable = ParseVariableName(state);
        state.Expect(Keyword::Table);
        state.Declare(function->tableVariable, VariableKind::Table, position);
        function->table = ParseTableDefinition(state);
    } else {
        function->returnType = ParseDataType(state);
    }
    ParseFunctionBody(state, *function);
    CheckFunctionBody(state, *function);
    return function;
}

StatementPtr ParseTrigger(ParseState& state, const ModuleHead& head) {
    auto trigger = BeginModule<CreateTriggerStatement>(state, head, "CREATE/ALTER TRIGGER");
    state.Expect(Keyword::On);
    if (state.Is(Keyword::Database) || (state.Is(Keyword::All) && state.Is("SERVER", 1)))
        state.Refuse("triggers on a database or server", state.At());
    trigger->table = ParseName(state, 3);
    ParseModuleOptions(state, *trigger);
    ParseTriggerTiming(state, *trigger);
    state.Expect(Keyword::As);
    trigger->body = ParseModuleBody(state, ModuleKind::Trigger);
    return trigger;
}

StatementPtr ParseEnableTrigger(ParseState& state) {
    auto statement = Begin<EnableTriggerStatement>(state);
    statement->enable = state.Is("ENABLE");
    state.Take();
    state.Expect(Keyword::Trigger);
    if (state.Accept(Keyword::All))
        statement->all = true;
    else
        statement->names = ParseNames(state, 2);
    state.Expect(Keyword::On);
    if (state.Is(Keyword::Database) || (state.Is(Keyword::All) && state.Is("SERVER", 1)))
        state.Refuse("triggers on a database or server", state.At());
    statement->table = ParseName(state, 3);
    return statement;
}

} // namespace quillon::practice::tsql
