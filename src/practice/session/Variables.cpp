#include "practice/session/Variables.h"

#include "practice/session/SessionState.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

BinaryOperator OperatorOf(tsql::AssignmentOperator op) {
    switch (op) {
    case tsql::AssignmentOperator::Subtract: return BinaryOperator::Subtract;
    case tsql::AssignmentOperator::Multiply: return BinaryOperator::Multiply;
    case tsql::AssignmentOperator::Divide: return BinaryOperator::Divide;
    case tsql::AssignmentOperator::Modulo: return BinaryOperator::Modulo;
    case tsql::AssignmentOperator::BitAnd: return BinaryOperator::BitAnd;
    case tsql::AssignmentOperator::BitOr: return BinaryOperator::BitOr;
    case tsql::AssignmentOperator::BitXor: return BinaryOperator::BitXor;
    default: return BinaryOperator::Add;
    }
}

void DeclareOne(SessionState& session, const tsql::VariableDeclaration& declaration) {
    if (declaration.cursor) {
        session.Top().cursors.try_emplace(FoldName(declaration.name));
        return;
    }
    try {
        AddVariable(session, declaration.name, declaration.type);
    } catch (SqlError& error) {
        if (error.line == 0)
            error.line = declaration.position.line;
        error.procedure = session.Top().name;
        throw;
    }
}

void MakeTable(SessionState& session, const tsql::DeclareTableStatement& statement) {
    Variable variable;
    variable.table = session.Statements().CreateTableVariable(statement.variable, statement.definition);
    session.Top().ownTables.push_back(variable.table);
    session.Top().variables[FoldName(statement.variable)] = std::move(variable);
}

} // namespace

Variable& AddVariable(SessionState& session, std::string_view name, const tsql::DataType& type) {
    const Executor::ResolvedType resolved = session.Statements().ResolveType(type);
    Variable variable;
    if (resolved.table) {
        variable.table = session.Statements().CreateTableVariable(name, *resolved.table);
        session.Top().ownTables.push_back(variable.table);
    } else {
        variable.type = resolved.type;
        variable.value = Datum::Null(resolved.type);
    }
    return session.Top().variables[FoldName(name)] = std::move(variable);
}

void DeclareVariables(SessionState& session, const FlowProgram& program) {
    for (const FlowStep& step : program.Steps()) {
        if (step.kind != FlowStep::Kind::Run)
            continue;
        if (step.statement->kind == tsql::StatementKind::DeclareVariables) {
            for (const auto& declaration :
                 tsql::As<tsql::DeclareVariablesStatement>(*step.statement).variables)
                DeclareOne(session, declaration);
        } else if (step.statement->kind == tsql::StatementKind::DeclareTable) {
            const auto& table = tsql::As<tsql::DeclareTableStatement>(*step.statement);
            session.Top().tableDeclarations[FoldName(table.variable)] = &table;
        }
    }
}

Variable* FindVariable(SessionState& session, std::string_view name) {
    Frame& frame = session.Top();
    const std::string key = FoldName(name);
    const auto found = frame.variables.find(key);
    if (found != frame.variables.end())
        return &found->second;
    const auto declared = frame.tableDeclarations.find(key);
    if (declared == frame.tableDeclarations.end())
        return nullptr;
    MakeTable(session, *declared->second);
    return &frame.variables[key];
}

Variable& RequireVariable(SessionState& session, std::string_view name) {
    Variable* variable = FindVariable(session, name);
    if (variable == nullptr)
        throw SqlError(137, {name});
    return *variable;
}

void RunDeclare(SessionState& session, const tsql::DeclareVariablesStatement& statement) {
    for (const tsql::VariableDeclaration& declaration : statement.variables) {
        if (!declaration.value)
            continue;
        Variable& variable = RequireVariable(session, declaration.name);
        variable.value = session.Statements().Evaluate(*declaration.value, variable.type);
        session.rowCount = 1;
    }
}

void RunDeclareTable(SessionState& session, const tsql::DeclareTableStatement& statement) {
    FindVariable(session, statement.variable); // a second pass through a loop keeps the rows
}

void RunSetVariable(SessionState& session, const tsql::SetVariableStatement& statement) {
    Variable& variable = RequireVariable(session, statement.variable);
    if (statement.op == tsql::AssignmentOperator::Set) {
        variable.value = session.Statements().Evaluate(*statement.value, variable.type);
    } else {
        const Datum right = session.Statements().Evaluate(*statement.value);
        variable.value =
            session.Statements().Evaluate(OperatorOf(statement.op), variable.value, right, variable.type);
    }
    session.rowCount = 1;
}

} // namespace quillon::practice
