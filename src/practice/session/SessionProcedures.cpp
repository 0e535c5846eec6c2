// Procedures that the session itself is: those that run texts or change what only the session knows.
#include "practice/session/Calls.h"
#include "practice/session/FlowRunner.h"
#include "practice/session/SessionState.h"
#include "practice/tsql/Parser.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

constexpr std::size_t kMostKeptTexts = 300;

const Datum& TextArgument(const std::vector<CallArgument>& arguments, std::size_t index,
                          const char* parameter) {
    static const Datum nothing;
    if (index >= arguments.size())
        return nothing;
    const Datum& value = arguments[index].value;
    if (!value.IsNull() && !value.Type().IsUnicode())
        throw SqlError(214, {parameter, "ntext/nchar/nvarchar"}, 2);
    return value;
}

/// 8178 where a parameter of the text has no argument.
void RequireArguments(const KeptText& kept, const std::vector<CallArgument>& arguments,
                      const std::string& text) {
    std::size_t positions = 0;
    for (const CallArgument& argument : arguments)
        positions += argument.name.empty() ? 1 : 0;
    for (std::size_t i = positions; i < kept.parameters->size(); ++i) {
        const std::string& name = (*kept.parameters)[i].name;
        const bool given = std::any_of(arguments.begin(), arguments.end(), [&](const CallArgument& argument) {
            return SameName(argument.name, name);
        });
        if (!given && !(*kept.parameters)[i].defaultValue)
            throw SqlError(8178, {"(" + kept.parameterSource + ")" + text, name});
    }
}

int ExecuteSql(SessionState& session, std::vector<CallArgument>& arguments) {
    if (arguments.empty())
        throw SqlError(201, {"sp_executesql", "@statement"}, 10);
    const Datum& statement = TextArgument(arguments, 0, "@statement");
    const Datum& declared = TextArgument(arguments, 1, "@params");
    if (statement.IsNull())
        return 0;
    const std::string text = statement.Text();
    const KeptText kept = ParseKept(session, text, declared.IsNull() ? std::string() : declared.Text());
    const std::size_t first = std::min<std::size_t>(2, arguments.size());
    std::vector<CallArgument> values(arguments.begin() + static_cast<std::ptrdiff_t>(first), arguments.end());
    RequireArguments(kept, values, text);
    auto frame = std::make_unique<Frame>();
    frame->kind = FrameKind::Text;
    frame->tree = kept.tree;
    const int transactions = session.store.TransactionCount();
    {
        const FrameScope scope(session, std::move(frame));
        BindArguments(session, *kept.parameters, values, "sp_executesql");
        RunProgram(session, *kept.program);
        TakeOutputs(session, *kept.parameters, values);
    }
    std::move(values.begin(), values.end(), arguments.begin() + static_cast<std::ptrdiff_t>(first));
    CheckTransactionCount(session, transactions, {});
    return session.error;
}

int SetSessionContext(SessionState& session, std::vector<CallArgument>& arguments) {
    Datum key;
    Datum value;
    bool readOnly = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& name = arguments[i].name;
        if (name.empty() ? i == 0 : SameName(name, "@key"))
            key = arguments[i].value;
        else if (name.empty() ? i == 1 : SameName(name, "@value"))
            value = arguments[i].value;
        else if (name.empty() ? i == 2 : SameName(name, "@read_only"))
            readOnly = !arguments[i].value.IsNull() &&
                       Convert(arguments[i].value, SimpleType(TypeId::Bit)).Integer() != 0;
        else
            throw SqlError(8145, {name, "sp_set_session_context"});
    }
    if (key.IsNull())
        throw SqlError(201, {"sp_set_session_context", "@key"}, 4);
    auto& [kept, locked] = session.sessionContext[FoldName(ToText(key))];
    if (locked)
        throw SqlError(15664, {ToText(key)});
    kept = value;
    locked = readOnly;
    return 0;
}

using SessionProcedure = int (*)(SessionState&, std::vector<CallArgument>&);

struct ProcedureRow {
    std::string_view name;
    SessionProcedure run; // nullptr: refused by name
};

const ProcedureRow kProcedures[] = {
    {"sp_executesql", ExecuteSql}, {"sp_set_session_context", SetSessionContext},
    {"sp_prepare", nullptr},       {"sp_execute", nullptr},
    {"sp_unprepare", nullptr},     {"sp_prepexec", nullptr},
    {"xp_cmdshell", nullptr},
};

// What the documentation has and this server has not, so that nobody looks for a slip of the pen.
constexpr std::string_view kMissing[] = {
    "sp_addlinkedserver", "sp_attach_db",         "sp_autostats",
    "sp_changedbowner",   "sp_changeobjectowner", "sp_createstats",
    "sp_cursor",          "sp_cursorclose",       "sp_cursorexecute",
    "sp_cursorfetch",     "sp_cursoropen",        "sp_cursoroption",
    "sp_cursorprepare",   "sp_cursorprepexec",    "sp_cursorunprepare",
    "sp_cycle_errorlog",  "sp_dbcmptlevel",       "sp_describe_first_result_set",
    "sp_detach_db",       "sp_helpfilegroup",     "sp_helplanguage",
    "sp_helprotect",      "sp_helpserver",        "sp_helpsort",
    "sp_indexoption",     "sp_monitor",           "sp_oacreate",
    "sp_readerrorlog",    "sp_refreshsqlmodule",  "sp_send_dbmail",
    "sp_serveroption",    "sp_tableoption",       "sp_updatestats",
    "xp_fixeddrives",     "xp_logevent",          "xp_regread",
    "xp_sendmail",        "xp_sprintf",
};

} // namespace

const KeptText& ParseKept(SessionState& session, const std::string& text, const std::string& parameters) {
    std::string key = session.options.quotedIdentifier ? "1" : "0";
    key += parameters + '\0' + text;
    const auto found = session.keptTexts.find(key);
    if (found != session.keptTexts.end())
        return found->second;
    if (session.keptTexts.size() >= kMostKeptTexts)
        session.keptTexts.clear();
    KeptText kept;
    tsql::ParsedParameters parsed = tsql::ParseParameters(parameters);
    kept.parameterSource = std::move(parsed.source);
    kept.parameters = std::make_shared<const std::vector<tsql::Parameter>>(std::move(parsed.parameters));
    tsql::ParseOptions options;
    options.quotedIdentifiers = session.options.quotedIdentifier;
    for (const tsql::Parameter& parameter : *kept.parameters)
        options.variables.push_back(parameter.name);
    kept.tree = tsql::ParseBatch(text, options);
    kept.program = std::make_shared<FlowProgram>(kept.tree->statements);
    return session.keptTexts.emplace(std::move(key), std::move(kept)).first->second;
}

std::optional<int> CallSessionProcedure(SessionState& session, const tsql::Name& name,
                                        std::vector<CallArgument>& arguments) {
    for (const ProcedureRow& row : kProcedures) {
        if (!SameName(row.name, name.Last()))
            continue;
        if (row.run == nullptr)
            throw SqlError::NotSupported("EXEC " + std::string(row.name));
        return row.run(session, arguments);
    }
    for (const std::string_view missing : kMissing)
        if (SameName(missing, name.Last()))
            throw SqlError::NotSupported("EXEC " + std::string(missing));
    return std::nullopt;
}

} // namespace quillon::practice
