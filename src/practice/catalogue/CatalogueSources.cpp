// The SQL functions behind the system views: lists of logins, sessions and messages as JSON, which SQLite
// takes apart, and the number of rows of a table.
#include "practice/catalogue/CatalogueViews.h"
#include "practice/catalogue/Dependencies.h"
#include "practice/storage/Catalogue.h"
#include "practice/values/Convert.h"
#include "practice/values/SqlError.h"
#include "practice/values/StorageForm.h"

#include <nlohmann/json.hpp>
#include <sqlite3.h>

namespace quillon::practice {

namespace {

std::int64_t StoredMoment(const Moment& moment) {
    return std::stoll(
        SqliteLiteral(Datum::When(SimpleType(TypeId::DateTime), moment), SimpleType(TypeId::DateTime)));
}

const CatalogueSources& SourcesOf(sqlite3_context* context) {
    return *static_cast<const CatalogueSources*>(sqlite3_user_data(context));
}

void Answer(sqlite3_context* context, const std::string& text) {
    sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void Logins(sqlite3_context* context, int, sqlite3_value**) {
    nlohmann::json list = nlohmann::json::array();
    if (SourcesOf(context).logins)
        for (const LoginRow& row : SourcesOf(context).logins())
            list.push_back({{"name", row.name},
                            {"id", row.principalId},
                            {"sid", ToHex(row.sid, false)},
                            {"database", row.defaultDatabase},
                            {"language", row.defaultLanguage},
                            {"disabled", row.disabled ? 1 : 0},
                            {"administrator", row.administrator ? 1 : 0},
                            {"created", StoredMoment(row.created)},
                            {"modified", StoredMoment(row.modified)}});
    Answer(context, list.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
}

void Sessions(sqlite3_context* context, int, sqlite3_value**) {
    static constexpr const char* orders[] = {"mdy", "dmy", "ymd", "ydm", "myd", "dym"};
    nlohmann::json list = nlohmann::json::array();
    if (SourcesOf(context).sessions)
        for (const SessionRow& row : SourcesOf(context).sessions())
            list.push_back({{"id", row.sessionId},
                            {"login", row.login},
                            {"host", row.hostName},
                            {"program", row.programName},
                            {"status", row.status},
                            {"database", row.database},
                            {"process", row.hostProcessId},
                            {"login_time", StoredMoment(row.loginTime)},
                            {"blocked", row.blockedBy},
                            {"options", row.settings.options},
                            {"text_size", row.settings.textSize},
                            {"date_first", row.settings.dateFirst},
                            {"date_format", orders[static_cast<std::size_t>(row.settings.dateOrder)]},
                            {"language", row.settings.british ? "British" : "us_english"},
                            {"isolation", row.settings.isolation},
                            {"lock_timeout", row.settings.lockTimeout},
                            {"deadlock_priority", row.settings.deadlockPriority},
                            {"transactions", row.openTransactions}});
    Answer(context, list.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
}

void AllLocks(sqlite3_context* context, int, sqlite3_value**) {
    static constexpr const char* types[] = {"FILE", "OBJECT", "APPLICATION"};
    static constexpr const char* modes[] = {"IS", "S", "U", "IX", "X"};
    nlohmann::json list = nlohmann::json::array();
    if (SourcesOf(context).locks)
        for (const LockRow& row : SourcesOf(context).locks())
            list.push_back({{"session", row.session},
                            {"type", types[static_cast<std::size_t>(row.lock.name.kind)]},
                            {"mode", modes[static_cast<std::size_t>(row.lock.mode)]},
                            {"status", row.granted ? "GRANT" : "WAIT"},
                            {"owner", row.forSession ? "SESSION" : "TRANSACTION"},
                            {"database", row.lock.name.database},
                            {"object", row.lock.name.object},
                            {"resource", row.lock.name.resource},
                            {"count", row.count}});
    Answer(context, list.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
}

void Messages(sqlite3_context* context, int, sqlite3_value**) {
    static const std::string text = [] {
        nlohmann::json list = nlohmann::json::array();
        int count = 0;
        const MessageRow* rows = AllMessages(count);
        for (int index = 0; index < count; ++index)
            list.push_back({rows[index].number, rows[index].severity, rows[index].text});
        return list.dump();
    }();
    Answer(context, text);
}

void ServerName(sqlite3_context* context, int, sqlite3_value**) {
    Answer(context, SourcesOf(context).serverName);
}

void UnhexBytes(sqlite3_context* context, int, sqlite3_value** values) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(values[0]));
    if (text == nullptr)
        return;
    const Datum bytes = Convert(Datum::VarCharOf(text), BinaryType(TypeId::VarBinary, 85), {}, 2);
    ResultDatum(context, bytes, bytes.Type());
}

std::string TextOf(sqlite3_value* value) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return bytes == nullptr ? std::string() : std::string(bytes);
}

// Whether an expression speaks of a column; with the name of the collation that names compare by.
void Mentions(sqlite3_context* context, int, sqlite3_value** values) {
    const NameRule rule(FindCollation(TextOf(values[2])));
    sqlite3_result_int(context, rule.IsMentioned(TextOf(values[1]), TextOf(values[0])));
}

// [database, schema, name, is changed] of each object that a module's text names.
void References(sqlite3_context* context, int, sqlite3_value** values) {
    const NameRule rule(FindCollation(TextOf(values[1])));
    nlohmann::json list = nlohmann::json::array();
    for (const NamedReference& reference : NamedReferences(TextOf(values[0]), rule))
        list.push_back({reference.database, reference.schema, reference.name, reference.isChanged ? 1 : 0});
    Answer(context, list.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
}

// Rows of a user table, which lies under its number; 0 for what has no rows of its own.
void RowCount(sqlite3_context* context, int, sqlite3_value** values) {
    const std::string sql = "SELECT count(*) FROM main.t" + std::to_string(sqlite3_value_int64(values[0]));
    sqlite3_stmt* statement = nullptr;
    std::int64_t count = 0;
    if (sqlite3_prepare_v2(sqlite3_context_db_handle(context), sql.c_str(), -1, &statement, nullptr) ==
            SQLITE_OK &&
        sqlite3_step(statement) == SQLITE_ROW)
        count = sqlite3_column_int64(statement, 0);
    sqlite3_finalize(statement);
    sqlite3_result_int64(context, count);
}

} // namespace

void RegisterCatalogueSources(sqlite3* connection, const CatalogueSources& sources) {
    const auto add = [&](const char* name, int count,
                         void (*function)(sqlite3_context*, int, sqlite3_value**)) {
        sqlite3_create_function_v2(connection, name, count, SQLITE_UTF8,
                                   const_cast<CatalogueSources*>(&sources), function, nullptr, nullptr,
                                   nullptr);
    };
    add("quillon_logins", 0, Logins);
    add("quillon_sessions", 0, Sessions);
    add("quillon_locks", 0, AllLocks);
    add("quillon_messages", 0, Messages);
    add("quillon_server_name", 0, ServerName);
    add("unhex_bytes", 1, UnhexBytes);
    add("quillon_mentions", 3, Mentions);
    add("quillon_references", 2, References);
    add("quillon_row_count", 1, RowCount);
}

} // namespace quillon::practice
