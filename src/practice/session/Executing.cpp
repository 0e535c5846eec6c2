// EXEC from T-SQL: arguments evaluated, outputs assigned, texts run.
#include "practice/session/Calls.h"
#include "practice/session/FlowRunner.h"
#include "practice/session/Impersonating.h"
#include "practice/session/SessionState.h"
#include "practice/session/Variables.h"
#include "practice/tsql/Parser.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

CallArgument ArgumentOf(SessionState& session, const tsql::ExecuteArgument& written) {
    CallArgument argument;
    argument.name = written.name;
    argument.output = written.output;
    argument.useDefault = written.value->kind == tsql::ExpressionKind::DefaultValue;
    if (argument.useDefault)
        return argument;
    if (written.value->kind == tsql::ExpressionKind::Variable) {
        const std::string& name = tsql::As<tsql::VariableReference>(written.value).name;
        const auto cursor = session.Top().cursors.find(FoldName(name));
        if (cursor != session.Top().cursors.end()) {
            argument.isCursor = true;
            argument.cursor = cursor->second;
            return argument;
        }
        const Variable& variable = RequireVariable(session, name);
        argument.table = variable.table;
        argument.value = variable.value;
        return argument;
    }
    argument.value = session.Statements().Evaluate(*written.value);
    return argument;
}

void AssignOutputs(SessionState& session, const tsql::ExecuteProcedureStatement& statement,
                   std::vector<CallArgument>& arguments) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (!arguments[i].output)
            continue;
        const std::string& name = tsql::As<tsql::VariableReference>(statement.arguments[i].value).name;
        if (arguments[i].isCursor) {
            session.Top().cursors[FoldName(name)] = arguments[i].cursor;
            continue;
        }
        Variable& variable = RequireVariable(session, name);
        variable.value = ConvertForVariable(arguments[i].value, variable.type, session.Functions().Options());
    }
}

tsql::Name CalledName(SessionState& session, const tsql::ExecuteProcedureStatement& statement) {
    if (statement.procedureVariable.empty())
        return statement.procedure;
    const Datum& value = RequireVariable(session, statement.procedureVariable).value;
    const std::string text = value.IsNull() ? std::string() : ToText(value);
    auto name = tsql::ParseObjectName(text);
    if (!name)
        throw SqlError(2812, {text}, 62);
    return *std::move(name);
}

/// A client sees the end of the calls of its own batch as such, with the status of a procedure; those within
/// them end as statements do.
void TellReturn(SessionState& session, std::optional<int> status) {
    if (session.frames.size() > 1) {
        if (!session.options.noCount)
            session.Finish(StatementKind::Execute, std::nullopt);
        return;
    }
    if (session.sink.Diverted())
        return;
    if (status)
        session.sink.ReturnStatus(*status);
    session.sink.Done({EndScope::Procedure, StatementKind::Execute, std::nullopt, false});
}

void RunProcedureCall(SessionState& session, const tsql::ExecuteProcedureStatement& statement) {
    std::vector<CallArgument> arguments;
    for (const tsql::ExecuteArgument& written : statement.arguments)
        arguments.push_back(ArgumentOf(session, written));
    const int status = CallProcedure(session, CalledName(session, statement), arguments);
    AssignOutputs(session, statement, arguments);
    TellReturn(session, status);
    if (!statement.returnVariable.empty()) {
        Variable& variable = RequireVariable(session, statement.returnVariable);
        variable.value = ConvertForVariable(Datum::Int(status), variable.type);
    }
}

void RunText(SessionState& session, const tsql::ExecuteTextStatement& statement) {
    const Datum value = session.Statements().Evaluate(*statement.text);
    if (value.IsNull())
        return;
    tsql::ParseOptions options;
    options.quotedIdentifiers = session.options.quotedIdentifier;
    auto frame = std::make_unique<Frame>();
    frame->kind = FrameKind::Text;
    frame->tree = tsql::ParseBatch(ToText(value), options);
    const FlowProgram program(frame->tree->statements);
    const std::shared_ptr<const tsql::Batch> tree = frame->tree; // outlives the program
    const int transactions = session.store.TransactionCount();
    {
        const FrameScope scope(session, std::move(frame));
        if (!statement.asKind.empty())
            ImpersonateForText(session, statement.asKind, statement.asName);
        RunProgram(session, program);
    }
    CheckTransactionCount(session, transactions, {});
    TellReturn(session, std::nullopt);
}

} // namespace

void RunExecute(SessionState& session, const tsql::ExecuteStatement& statement) {
    if (statement.kind == tsql::StatementKind::ExecuteText)
        RunText(session, tsql::As<tsql::ExecuteTextStatement>(statement));
    else
        RunProcedureCall(session, tsql::As<tsql::ExecuteProcedureStatement>(statement));
}

} // namespace quillon::practice
