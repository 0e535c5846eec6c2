#include "practice/session/DefineModule.h"

#include "practice/catalogue/Dependencies.h"
#include "practice/session/Calls.h"
#include "practice/session/SessionState.h"
#include "practice/session/Variables.h"
#include "practice/tsql/Parser.h"

namespace quillon::practice {

namespace {

using tsql::As;
using Kind = tsql::StatementKind;

bool ShowsInDefinition(int number) {
    constexpr int numbers[] = {207, 209, 1011, 1013, 4104, 10700};
    return std::find(std::begin(numbers), std::end(numbers), number) != std::end(numbers);
}

/// The object that the statement has just put into the catalogue.
std::shared_ptr<const Module> DefinedBy(SessionState& session, const tsql::ModuleStatement& statement) {
    std::shared_ptr<const SchemaObject> object;
    if (statement.kind == Kind::CreateTrigger) {
        // A trigger lives where its table does, whatever its own name says.
        const auto& trigger = As<tsql::CreateTriggerStatement>(statement);
        if (const auto parent = session.Statements().FindObject(trigger.table))
            object =
                session.store.View()->FindObject(parent->database, parent->schema, statement.name.Last());
    } else
        object = session.Statements().FindObject(statement.name);
    return std::dynamic_pointer_cast<const Module>(object);
}

const tsql::StatementList& BodyOf(const tsql::ModuleStatement& statement) {
    switch (statement.kind) {
    case Kind::CreateProcedure: return As<tsql::CreateProcedureStatement>(statement).body;
    case Kind::CreateFunction: return As<tsql::CreateFunctionStatement>(statement).body;
    default: return As<tsql::CreateTriggerStatement>(statement).body;
    }
}

void DeclareParameters(SessionState& session, const std::vector<tsql::Parameter>& parameters) {
    for (const tsql::Parameter& parameter : parameters)
        if (parameter.cursor)
            session.Top().cursors.try_emplace(FoldName(parameter.name));
        else
            AddVariable(session, parameter.name, parameter.type).readOnly = parameter.readOnly;
}

void DeclareResult(SessionState& session, const tsql::CreateFunctionStatement& function) {
    if (function.function != tsql::FunctionKind::MultiStatementTable)
        return;
    Variable result;
    result.table = session.Statements().CreateTableVariable(function.tableVariable, function.table);
    session.Top().ownTables.push_back(result.table);
    session.Top().variables[FoldName(function.tableVariable)] = std::move(result);
}

/// Everything that the body may name with an @.
void DeclareAll(SessionState& session, const tsql::ModuleStatement& statement, const FlowProgram& program) {
    if (statement.kind == Kind::CreateProcedure)
        DeclareParameters(session, As<tsql::CreateProcedureStatement>(statement).parameters);
    if (statement.kind == Kind::CreateFunction) {
        DeclareParameters(session, As<tsql::CreateFunctionStatement>(statement).parameters);
        DeclareResult(session, As<tsql::CreateFunctionStatement>(statement));
    }
    DeclareVariables(session, program);
}

void BindStatement(Executor& executor, const tsql::Statement& statement) {
    const auto bindIfThere = [&](const tsql::ExpressionPtr& value) {
        if (value)
            executor.Bind(*value);
    };
    switch (statement.kind) {
    case Kind::DeclareVariables:
        for (const auto& one : As<tsql::DeclareVariablesStatement>(statement).variables)
            bindIfThere(one.value);
        return;
    case Kind::SetVariable: return bindIfThere(As<tsql::SetVariableStatement>(statement).value);
    case Kind::Return: return bindIfThere(As<tsql::ReturnStatement>(statement).value);
    case Kind::DeclareCursor:
        return executor.Bind(*As<tsql::DeclareCursorStatement>(statement).definition.select);
    case Kind::SetCursorVariable:
        if (const auto& definition = As<tsql::SetCursorVariableStatement>(statement).definition)
            executor.Bind(*definition->select);
        return;
    default: executor.Bind(statement);
    }
}

/// What is bound of an IF or WHILE ends where its first branch begins.
tsql::Span TextOf(const FlowStep& step) {
    tsql::Span text = step.statement->text;
    if (step.kind == FlowStep::Kind::JumpUnless)
        text.end = step.statement->kind == Kind::If
                       ? As<tsql::IfStatement>(*step.statement).then->text.begin
                       : As<tsql::WhileStatement>(*step.statement).body->text.begin;
    return text;
}

const std::vector<tsql::CommonTable>* CommonTablesOf(const tsql::Statement& statement) {
    switch (statement.kind) {
    case Kind::Select: return &As<tsql::SelectStatement>(statement).query.with;
    case Kind::Insert:
    case Kind::Update:
    case Kind::Delete:
    case Kind::Merge: return &static_cast<const tsql::DmlStatement&>(statement).with;
    default: return nullptr;
    }
}

/// The table that the statement itself makes.
std::string_view MadeBy(const tsql::Statement& statement) {
    if (statement.kind != Kind::Select)
        return {};
    const tsql::Name& into = As<tsql::SelectStatement>(statement).First().into;
    return into.Empty() ? std::string_view() : into.Last();
}

bool IsCommonTable(const tsql::Statement& statement, std::string_view name, const NameRule& rule) {
    const std::vector<tsql::CommonTable>* all = CommonTablesOf(statement);
    return all != nullptr && std::any_of(all->begin(), all->end(),
                                         [&](const auto& table) { return rule.Same(table.name, name); });
}

bool IsRowSet(const SessionState& session, std::string_view name, const NameRule& rule) {
    return session.frames.back()->trigger != nullptr &&
           (rule.Same(name, "inserted") || rule.Same(name, "deleted"));
}

bool IsThere(SessionState& session, const tsql::Statement& statement, const NamedReference& reference,
             const NameRule& rule) {
    if (rule.Same(reference.schema, "sys") || rule.Same(reference.name, MadeBy(statement)))
        return true;
    if (reference.schema.empty() &&
        (IsCommonTable(statement, reference.name, rule) || IsRowSet(session, reference.name, rule)))
        return true;
    tsql::Name name;
    for (const std::string& part : {reference.database, reference.schema, reference.name})
        if (!part.empty() || !name.parts.empty())
            name.parts.push_back(part);
    try {
        return session.Statements().FindObject(name) != nullptr;
    } catch (const SqlError&) {
        return false; // a synonym of nothing
    }
}

/// Whether the step names something that is not there yet, or a temporary table, which may be another one by
/// the time it runs.
bool NamesWhatMayCome(SessionState& session, const FlowStep& step) {
    const tsql::Span span = TextOf(step);
    const std::string text(session.Context().SourceText().substr(span.begin, span.end - span.begin));
    const std::string_view made = MadeBy(*step.statement);
    if (std::count(text.begin(), text.end(), '#') > std::count(made.begin(), made.end(), '#'))
        return true;
    const NameRule rule = session.store.View()->FindDatabase(session.database)->Rule();
    const std::vector<NamedReference> references = NamedReferences("BEGIN " + text, rule);
    return !std::all_of(references.begin(), references.end(), [&](const NamedReference& reference) {
        return IsThere(session, *step.statement, reference, rule);
    });
}

/// The wrong names in the body of the module, whose frame is on top.
std::vector<SqlError> WrongNames(SessionState& session, const FlowProgram& program) {
    std::vector<SqlError> wrong;
    for (const FlowStep& step : program.Steps())
        try {
            if (step.kind == FlowStep::Kind::Run)
                BindStatement(session.Statements(), *step.statement);
            else if (step.kind == FlowStep::Kind::JumpUnless)
                session.Statements().Bind(*step.condition);
        } catch (SqlError& error) {
            constexpr int readOnly = 10700;
            if (!ShowsInDefinition(error.number) ||
                (error.number != readOnly && NamesWhatMayCome(session, step)))
                continue; // shows when it runs
            if (error.line == 0)
                error.line = step.statement->position.line;
            error.procedure = session.Top().name;
            wrong.push_back(error);
        } catch (const StoreFailure&) {
            // the rows of a trigger have no place to be read from before it fires
        }
    return wrong;
}

void CheckNames(SessionState& session, const tsql::ModuleStatement& statement) {
    const std::shared_ptr<const Module> module = DefinedBy(session, statement);
    if (!module)
        return;
    auto frame = std::make_unique<Frame>();
    frame->kind = statement.kind == Kind::CreateTrigger    ? FrameKind::Trigger
                  : statement.kind == Kind::CreateFunction ? FrameKind::Function
                                                           : FrameKind::Procedure;
    frame->name = module->name;
    frame->module = module;
    frame->tree = session.Top().tree;
    TriggerFrame firing;
    if (const auto* trigger = dynamic_cast<const Trigger*>(module.get())) {
        firing = session.Statements().PretendedFiring(*trigger);
        frame->trigger = &firing;
    }
    const FlowProgram program(BodyOf(statement));
    const FrameScope scope(session, std::move(frame));
    try {
        DeclareAll(session, statement, program);
    } catch (const SqlError&) {
        return; // a type that is not there yet
    }
    std::vector<SqlError> wrong = WrongNames(session, program);
    if (!wrong.empty())
        throw tsql::SyntaxErrors(std::move(wrong));
}

} // namespace

bool HasBody(Kind kind) {
    return kind == Kind::CreateProcedure || kind == Kind::CreateFunction || kind == Kind::CreateTrigger;
}

StatementOutcome DefineModule(SessionState& session, const tsql::Statement& statement) {
    const StoreSession::StatementMark mark = session.store.BeginStatement(StoreSession::Writes::Data);
    try {
        const StatementOutcome outcome = session.Statements().Execute(statement);
        CheckNames(session, static_cast<const tsql::ModuleStatement&>(statement));
        session.store.EndStatement(mark);
        return outcome;
    } catch (...) {
        session.store.UndoStatement(mark);
        throw;
    }
}

} // namespace quillon::practice
