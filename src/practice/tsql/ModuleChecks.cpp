#include "practice/tsql/ModuleChecks.h"

#include <set>

namespace quillon::practice::tsql {

void Visit(const Statement& statement, const Visitor& visitor) {
    visitor(statement);
    switch (statement.kind) {
    case StatementKind::Block: Visit(As<BlockStatement>(statement).body, visitor); break;
    case StatementKind::If:
        Visit(*As<IfStatement>(statement).then, visitor);
        if (As<IfStatement>(statement).otherwise)
            Visit(*As<IfStatement>(statement).otherwise, visitor);
        break;
    case StatementKind::While: Visit(*As<WhileStatement>(statement).body, visitor); break;
    case StatementKind::TryCatch:
        Visit(As<TryCatchStatement>(statement).body, visitor);
        Visit(As<TryCatchStatement>(statement).handler, visitor);
        break;
    default: break;
    }
}

void Visit(const StatementList& statements, const Visitor& visitor) {
    for (const StatementPtr& statement : statements)
        Visit(*statement, visitor);
}

namespace {

bool WritesToVariable(const Statement& statement) {
    return !static_cast<const DmlStatement&>(statement).target.variable.empty();
}

/// The name by which message 443 calls what a function must not do; empty for what it may.
std::string_view SideEffect(const Statement& statement) {
    switch (statement.kind) {
    case StatementKind::Insert:
        if (As<InsertStatement>(statement).source == InsertSource::Execute)
            return "INSERT EXEC";
        return WritesToVariable(statement) ? "" : "INSERT";
    case StatementKind::Update: return WritesToVariable(statement) ? "" : "UPDATE";
    case StatementKind::Delete: return WritesToVariable(statement) ? "" : "DELETE";
    case StatementKind::Merge: return WritesToVariable(statement) ? "" : "MERGE";
    case StatementKind::Truncate: return "TRUNCATE TABLE";
    case StatementKind::Print: return "PRINT";
    case StatementKind::RaiseError: return "RAISERROR";
    case StatementKind::Throw: return "THROW";
    case StatementKind::TryCatch: return "BEGIN TRY";
    case StatementKind::ExecuteText: return "EXECUTE STRING";
    case StatementKind::SetOption: return "SET OPTION ON";
    case StatementKind::WaitFor: return "WAITFOR";
    case StatementKind::BeginTransaction: return "BEGIN TRANSACTION";
    case StatementKind::CommitTransaction: return "COMMIT TRANSACTION";
    case StatementKind::RollbackTransaction: return "ROLLBACK TRANSACTION";
    case StatementKind::SaveTransaction: return "SAVE TRANSACTION";
    case StatementKind::CreateTable: return "CREATE TABLE";
    case StatementKind::AlterTable: return "ALTER TABLE";
    case StatementKind::Drop: return "DROP OBJECT";
    default: return "";
    }
}

/// 444: a SELECT in a function must assign to variables.
void CheckFunctionSelect(ParseState& state, const Statement& statement) {
    const std::vector<SelectItem>& items = As<SelectStatement>(statement).First().items;
    if (!items.empty() && items.front().kind != SelectItem::Kind::Assignment)
        state.Note(444, {}, statement.position);
}

const Statement* LastOf(const StatementList& statements) {
    const Statement* last = statements.empty() ? nullptr : statements.back().get();
    while (last != nullptr && last->kind == StatementKind::Block) {
        const StatementList& body = As<BlockStatement>(*last).body;
        last = body.empty() ? nullptr : body.back().get();
    }
    return last;
}

} // namespace

void CheckFunctionBody(ParseState& state, const CreateFunctionStatement& function) {
    Visit(function.body, [&](const Statement& statement) {
        const std::string_view effect = SideEffect(statement);
        if (!effect.empty())
            state.Note(443, {effect}, statement.position);
        if (statement.kind == StatementKind::Select)
            CheckFunctionSelect(state, statement);
    });
    const Statement* last = LastOf(function.body);
    if (last == nullptr || last->kind != StatementKind::Return)
        state.Note(455, {}, last == nullptr ? function.position : last->position);
}

void CheckLabels(ParseState& state, const StatementList& statements) {
    std::set<std::string> labels;
    Visit(statements, [&](const Statement& statement) {
        if (statement.kind != StatementKind::Label)
            return;
        const std::string& label = As<LabelStatement>(statement).label;
        if (!labels.insert(UpperWord(label)).second)
            state.Note(132, {label}, statement.position);
    });
    Visit(statements, [&](const Statement& statement) {
        if (statement.kind != StatementKind::Goto)
            return;
        const std::string& label = As<LabelStatement>(statement).label;
        if (labels.count(UpperWord(label)) == 0)
            state.Note(133, {label}, statement.position);
    });
}

} // namespace quillon::practice::tsql
