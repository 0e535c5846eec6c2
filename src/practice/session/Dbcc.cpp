#include "practice/session/Dbcc.h"

#include "practice/session/Permitting.h"
#include "practice/session/SessionState.h"
#include "practice/tsql/Keywords.h"
#include "practice/tsql/Parser.h"

namespace quillon::practice {

namespace {

bool IsQuiet(const tsql::DbccStatement& statement) {
    return std::find(statement.options.begin(), statement.options.end(), "NO_INFOMSGS") !=
           statement.options.end();
}

/// Commands about caches and counters that this server does not have.
bool ChangesNothing(const std::string& command) {
    return command == "FREEPROCCACHE" || command == "DROPCLEANBUFFERS" || command == "UPDATEUSAGE" ||
           command == "TRACEON" || command == "TRACEOFF";
}

[[noreturn]] void FailMissing(const std::string& name) {
    throw SqlError::Custom(2501, 16, 45,
                           "Cannot find a table or object with the name \"" + name +
                               "\". Check the system catalog.");
}

tsql::Name TableName(SessionState& session, const tsql::DbccStatement& statement) {
    if (statement.arguments.empty())
        throw SqlError::Custom(2583, 16, 3,
                               "An incorrect number of parameters was given to the DBCC statement.");
    const tsql::Expression& argument = *statement.arguments.front();
    if (argument.kind == tsql::ExpressionKind::Column)
        return tsql::As<tsql::ColumnReference>(argument).name;
    const Datum value = session.Statements().Evaluate(argument);
    const std::string text = value.IsNull() ? std::string() : ToText(value);
    auto name = tsql::ParseObjectName(text);
    if (!name)
        FailMissing(text);
    return *std::move(name);
}

/// The greatest value that the identity column has; nothing in an empty table.
std::optional<std::int64_t> GreatestValue(SessionState& session, const tsql::Name& name) {
    std::string quoted;
    for (const std::string& part : name.parts) {
        quoted += quoted.empty() ? "" : ".";
        if (part.empty())
            continue;
        quoted += '[';
        for (const char c : part)
            quoted += c == ']' ? std::string("]]") : std::string(1, c);
        quoted += ']';
    }
    const auto tree = tsql::ParseBatch("SELECT MAX(CAST($IDENTITY AS bigint)) FROM " + quoted);
    const auto reader = session.Statements().Open(tsql::As<tsql::SelectStatement>(tree->statements.front()));
    std::vector<Datum> row;
    if (!reader->Next(row) || row[0].IsNull())
        return std::nullopt;
    return row[0].Integer();
}

void SetIdentity(SessionState& session, const Table& table, std::int64_t last) {
    const auto writes = table.temporary ? StoreSession::Writes::Temporary : StoreSession::Writes::Data;
    const StoreSession::StatementMark mark = session.store.BeginStatement(writes);
    try {
        session.server.store.Identities().Set(table.id, last);
        session.store.NoteIdentity(table.id);
        session.store.EndStatement(mark);
    } catch (...) {
        session.store.UndoStatement(mark);
        throw;
    }
}

std::string Shown(std::optional<std::int64_t> value) {
    return value ? std::to_string(*value) : "NULL";
}

bool IsWord(const tsql::DbccStatement& statement, std::size_t index, std::string_view word) {
    return index < statement.arguments.size() &&
           statement.arguments[index]->kind == tsql::ExpressionKind::Column &&
           tsql::SameWord(tsql::As<tsql::ColumnReference>(statement.arguments[index]).name.Last(), word);
}

/// CHECKIDENT (table [, NORESEED | RESEED [, value]])
void CheckIdentity(SessionState& session, const tsql::DbccStatement& statement) {
    const tsql::Name name = TableName(session, statement);
    const auto table = std::dynamic_pointer_cast<const Table>(session.Statements().FindObject(name));
    if (!table)
        FailMissing(name.Text());
    if (!MayAlter(session, *table))
        throw SqlError(2557, {session.UserName(), "CHECKIDENT", table->name});
    const Column* column = table->IdentityColumn();
    if (column == nullptr)
        throw SqlError::Custom(7997, 16, 1, "'" + table->name + "' does not contain an identity column.");
    const auto last = session.server.store.Identities().Last(table->id);
    const auto greatest = GreatestValue(session, name);
    if (statement.arguments.size() > 2) {
        const Datum value =
            session.Statements().Evaluate(*statement.arguments[2], SimpleType(TypeId::BigInt));
        // A table that never had a row gives the new value itself, every other one the value after it.
        SetIdentity(session, *table, value.Integer() - (last ? 0 : column->identity->increment));
    } else if (!IsWord(statement, 1, "NORESEED") && greatest && (!last || *last < *greatest)) {
        SetIdentity(session, *table, *greatest);
    }
    if (!IsQuiet(statement))
        session.Inform(7998, "Checking identity information: current identity value '" + Shown(last) +
                                 "', current column value '" + Shown(greatest) + "'.");
}

} // namespace

void RunDbcc(SessionState& session, const tsql::DbccStatement& statement) {
    if (statement.command == "CHECKIDENT")
        CheckIdentity(session, statement);
    else if (!ChangesNothing(statement.command))
        throw SqlError::NotSupported("DBCC " + statement.command);
    else if (!session.IsAdministrator())
        throw SqlError(2571, {session.UserName(), statement.command});
    if (!IsQuiet(statement))
        session.Inform(2528, MessageText(2528));
}

} // namespace quillon::practice
