#include "practice/session/CursorStatements.h"

#include "practice/session/Permitting.h"
#include "practice/session/SessionState.h"
#include "practice/session/Variables.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

using CursorTable = std::unordered_map<std::string, std::shared_ptr<Cursor>>;

/// The table that has the cursor; nullptr when none does.
CursorTable* TableOf(SessionState& session, const tsql::CursorName& name, const std::string& key) {
    CursorTable& local = session.Top().cursors;
    if (!name.global && local.count(key) > 0)
        return &local;
    return !name.variable && session.globalCursors.count(key) > 0 ? &session.globalCursors : nullptr;
}

std::shared_ptr<Cursor>& RequireSlot(SessionState& session, const tsql::CursorName& name) {
    const std::string key = FoldName(name.name);
    CursorTable* table = TableOf(session, name, key);
    if (table == nullptr)
        throw SqlError(16916, {name.name});
    std::shared_ptr<Cursor>& slot = (*table)[key];
    if (!slot)
        throw SqlError(16950, {name.name});
    return slot;
}

std::shared_ptr<Cursor> Make(SessionState& session, const std::string& name,
                             const tsql::CursorDefinition& definition) {
    return std::make_shared<Cursor>(name, session.Top().tree, session.Top().module, definition);
}

bool IsLocalByDefault(SessionState& session) {
    const Database* database = session.store.View()->FindDatabase(session.database);
    const auto option = database->options.find("CURSOR_DEFAULT");
    return option != database->options.end() && option->second == "LOCAL";
}

void SendRow(SessionState& session, const Cursor& cursor, bool found) {
    session.sink.Columns(cursor.Columns());
    if (found)
        session.sink.Row(cursor.Row());
    std::optional<std::uint64_t> count;
    if (!session.options.noCount)
        count = found ? 1 : 0;
    session.Finish(StatementKind::Select, count);
}

void FillVariables(SessionState& session, const Cursor& cursor, const std::vector<std::string>& names) {
    const ConvertOptions options = session.Functions().Options();
    for (std::size_t i = 0; i < names.size(); ++i) {
        Variable& variable = RequireVariable(session, names[i]);
        variable.value = ConvertForVariable(cursor.Row()[i], variable.type, options);
    }
}

} // namespace

Cursor& RequireCursor(SessionState& session, const tsql::CursorName& name) {
    return *RequireSlot(session, name);
}

void RunDeclareCursor(SessionState& session, const tsql::DeclareCursorStatement& statement) {
    const tsql::CursorDefinition& definition = statement.definition;
    const bool local = definition.local || (!definition.global && IsLocalByDefault(session));
    CursorTable& table = local ? session.Top().cursors : session.globalCursors;
    const auto [slot, fresh] = table.try_emplace(FoldName(statement.name));
    if (!fresh)
        throw SqlError(16915, {statement.name});
    slot->second = Make(session, statement.name, statement.definition);
}

void RunSetCursor(SessionState& session, const tsql::SetCursorVariableStatement& statement) {
    std::shared_ptr<Cursor> cursor = statement.definition
                                         ? Make(session, statement.variable, *statement.definition)
                                         : RequireSlot(session, statement.source);
    session.Top().cursors[FoldName(statement.variable)] = std::move(cursor);
}

void RunCursor(SessionState& session, const tsql::CursorStatement& statement) {
    if (statement.kind == tsql::StatementKind::OpenCursor) {
        Cursor& cursor = RequireCursor(session, statement.cursor);
        // Rights and views may have changed since it was declared.
        RequireRights(session, cursor.Query(), cursor.DeclaredBy());
        cursor.Open(session.Statements());
        session.cursorRows = cursor.RowCount();
        return;
    }
    if (statement.kind == tsql::StatementKind::CloseCursor)
        return RequireCursor(session, statement.cursor).Close();
    RequireSlot(session, statement.cursor);
    const std::string key = FoldName(statement.cursor.name);
    CursorTable& table = *TableOf(session, statement.cursor, key);
    if (statement.cursor.variable)
        table[key] = nullptr; // the variable stays, without a cursor
    else
        table.erase(key);
}

void RunFetch(SessionState& session, const tsql::FetchCursorStatement& statement) {
    session.fetchStatus = -1;
    Cursor& cursor = RequireCursor(session, statement.cursor);
    std::int64_t count = 0;
    if (statement.count) {
        const Datum value = session.Statements().Evaluate(*statement.count, SimpleType(TypeId::BigInt));
        count = value.IsNull() ? 0 : value.Integer();
    }
    if (cursor.IsOpen() && !statement.into.empty() && statement.into.size() != cursor.Columns().size())
        throw SqlError(16924);
    const bool found = cursor.Fetch(statement.direction, count);
    if (statement.into.empty())
        SendRow(session, cursor, found);
    else if (found)
        FillVariables(session, cursor, statement.into);
    session.fetchStatus = found ? 0 : -1;
    session.rowCount = found ? 1 : 0;
}

} // namespace quillon::practice
