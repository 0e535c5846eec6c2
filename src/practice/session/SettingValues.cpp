#include "practice/session/SettingValues.h"

#include "practice/catalogue/Metadata.h"
#include "practice/session/SessionState.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

Datum Name(std::string text) {
    return Datum::Text(NVarChar(128), std::move(text));
}

/// @@OPTIONS: the documented bits of what is set.
int OptionBits(const SessionState& session) {
    const SessionOptions& options = session.options;
    const std::pair<bool, int> bits[] = {
        {options.implicitTransactions, 2},
        {options.cursorCloseOnCommit, 4},
        {options.ansiWarnings, 8},
        {options.ansiPadding, 16},
        {options.ansiNulls, 32},
        {options.arithAbort, 64},
        {options.arithIgnore, 128},
        {options.quotedIdentifier, 256},
        {options.noCount, 512},
        {options.ansiNullDefault, 1024},
        {options.ansiNullDefaultOff, 2048},
        {options.concatNullYieldsNull, 4096},
        {options.xactAbort, 16384},
    };
    int value = 0;
    for (const auto& [on, bit] : bits)
        value += on ? bit : 0;
    return value;
}

std::string LastRowVersion(SessionState& session) {
    std::uint64_t number = session.server.store.LastRowVersion();
    std::string bytes(8, '\0');
    for (std::size_t i = 8; i-- > 0; number >>= 8)
        bytes[i] = static_cast<char>(number & 0xFF);
    return bytes;
}

using Reader = Datum (*)(SessionState&);

struct GlobalRow {
    std::string_view name;
    Reader read;
};

const GlobalRow kGlobals[] = {
    {"@@ERROR", [](SessionState& s) { return Datum::Int(s.error); }},
    {"@@ROWCOUNT", [](SessionState& s) { return Datum::Int(s.rowCount); }},
    {"@@TRANCOUNT", [](SessionState& s) { return Datum::Int(s.store.TransactionCount()); }},
    {"@@IDENTITY", [](SessionState& s) { return s.identity; }},
    {"@@SPID", [](SessionState& s) { return Datum::Integer(TypeId::SmallInt, s.facts.spid); }},
    {"@@NESTLEVEL", [](SessionState& s) { return Datum::Int(s.frames.empty() ? 0 : s.Top().nestLevel); }},
    {"@@PROCID", [](SessionState& s) { return Datum::Int(s.Context().CurrentModule()); }},
    {"@@FETCH_STATUS", [](SessionState& s) { return Datum::Int(s.fetchStatus); }},
    {"@@CURSOR_ROWS", [](SessionState& s) { return Datum::Int(s.cursorRows); }},
    {"@@SERVERNAME", [](SessionState& s) { return Name(s.server.name); }},
    {"@@SERVICENAME", [](SessionState& s) { return Name(s.server.name); }},
    {"@@VERSION", [](SessionState&) { return Datum::Text(NVarChar(300), std::string(ServerVersionText())); }},
    {"@@MICROSOFTVERSION", [](SessionState&) { return Datum::Int(0x0F000000); }},
    {"@@LANGUAGE", [](SessionState& s) { return Name(s.language); }},
    {"@@LANGID",
     [](SessionState& s) { return Datum::Integer(TypeId::SmallInt, s.language == "British" ? 23 : 0); }},
    {"@@DATEFIRST", [](SessionState& s) { return Datum::Integer(TypeId::TinyInt, s.options.dateFirst); }},
    {"@@DBTS",
     [](SessionState& s) { return Datum::Bytes(BinaryType(TypeId::VarBinary, 8), LastRowVersion(s)); }},
    {"@@LOCK_TIMEOUT", [](SessionState& s) { return Datum::Int(s.store.LockTimeout()); }},
    {"@@TEXTSIZE", [](SessionState& s) { return Datum::Int(s.options.textSize); }},
    {"@@OPTIONS", [](SessionState& s) { return Datum::Int(OptionBits(s)); }},
    {"@@MAX_PRECISION", [](SessionState&) { return Datum::Integer(TypeId::TinyInt, 38); }},
    {"@@MAX_CONNECTIONS", [](SessionState&) { return Datum::Int(32767); }},
};

/// Counters of a machine that this server does not measure.
constexpr std::string_view kCounters[] = {
    "@@CONNECTIONS",   "@@CPU_BUSY",  "@@IDLE",         "@@IO_BUSY",    "@@PACK_RECEIVED", "@@PACK_SENT",
    "@@PACKET_ERRORS", "@@TIMETICKS", "@@TOTAL_ERRORS", "@@TOTAL_READ", "@@TOTAL_WRITE",
};

std::optional<bool> OptionByName(const SessionState& session, std::string_view name) {
    const SessionOptions& options = session.options;
    const std::pair<std::string_view, bool> rows[] = {
        {"ANSI_NULLS", options.ansiNulls},
        {"ANSI_PADDING", options.ansiPadding},
        {"ANSI_WARNINGS", options.ansiWarnings},
        {"ARITHABORT", options.arithAbort},
        {"CONCAT_NULL_YIELDS_NULL", options.concatNullYieldsNull},
        {"NUMERIC_ROUNDABORT", false}, // which is refused
        {"QUOTED_IDENTIFIER", options.quotedIdentifier},
    };
    for (const auto& [option, on] : rows) {
        if (SameName(option, name))
            return on;
    }
    return std::nullopt;
}

Datum ConnectionProperty(const SessionState& session, std::string_view name) {
    if (SameName(name, "net_transport"))
        return Datum::NVarCharOf("TCP");
    if (SameName(name, "protocol_type"))
        return Datum::NVarCharOf("TSQL");
    if (SameName(name, "auth_scheme"))
        return Datum::NVarCharOf("SQL");
    if (SameName(name, "client_net_address") || SameName(name, "local_net_address"))
        return Datum::NVarCharOf(session.facts.address);
    return Datum::Null(SimpleType(TypeId::SqlVariant));
}

int TriggerLevelOf(const SessionState& session, std::span<const Datum> arguments) {
    const std::int64_t id = arguments.empty() || arguments[0].IsNull() ? 0 : arguments[0].Integer();
    return static_cast<int>(
        std::count_if(session.frames.begin(), session.frames.end(), [&](const auto& frame) {
            return frame->kind == FrameKind::Trigger &&
                   (id == 0 || (frame->module && frame->module->id == id));
        }));
}

int IsolationNumber(std::string_view level) {
    static constexpr std::string_view levels[] = {"READ UNCOMMITTED", "READ COMMITTED", "REPEATABLE READ",
                                                  "SERIALIZABLE", "SNAPSHOT"};
    return static_cast<int>(std::find(std::begin(levels), std::end(levels), level) - std::begin(levels)) + 1;
}

} // namespace

SessionSettings SettingsOf(const SessionState& session) {
    SessionSettings settings;
    settings.options = OptionBits(session);
    settings.textSize = session.options.textSize;
    settings.dateFirst = session.options.dateFirst;
    settings.dateOrder = session.options.dateOrder;
    settings.british = session.language == "British";
    settings.isolation = IsolationNumber(session.isolation);
    settings.lockTimeout = session.store.LockTimeout();
    settings.deadlockPriority = session.store.DeadlockPriority();
    return settings;
}

Datum GlobalValue(SessionState& session, std::string_view name) {
    for (const GlobalRow& row : kGlobals) {
        if (row.name == name)
            return row.read(session);
    }
    if (std::find(std::begin(kCounters), std::end(kCounters), name) != std::end(kCounters))
        return Datum::Int(0);
    throw SqlError(137, {name});
}

Datum AnswerSetting(SessionState& session, std::string_view function, std::span<const Datum> arguments) {
    if (function == "ROWCOUNT_BIG")
        return Datum::BigInt(session.rowCount);
    if (function == "TRIGGER_NESTLEVEL")
        return Datum::Int(TriggerLevelOf(session, arguments));
    if (function == "CURRENT_TRANSACTION_ID")
        return Datum::BigInt(static_cast<std::int64_t>(session.store.TransactionNumber()));
    if (function == "HOST_ID")
        return Datum::Text(TextType(TypeId::NChar, 8), std::to_string(session.facts.processId));
    if (function == "GETANSINULL")
        return Datum::Integer(TypeId::SmallInt, session.Context().NullByDefault() ? 1 : 0);
    const bool known = !arguments.empty() && !arguments[0].IsNull() && arguments[0].Type().IsCharacter();
    if (function == "SESSIONPROPERTY") {
        const auto on = known ? OptionByName(session, arguments[0].Text()) : std::nullopt;
        return on ? Datum::Int(*on ? 1 : 0) : Datum::Null(SimpleType(TypeId::SqlVariant));
    }
    if (function == "CONNECTIONPROPERTY")
        return known ? ConnectionProperty(session, arguments[0].Text())
                     : Datum::Null(SimpleType(TypeId::SqlVariant));
    throw SqlError::NotSupported(function);
}

} // namespace quillon::practice
