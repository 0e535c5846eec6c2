#include "practice/session/SetOptions.h"

#include "practice/session/SessionState.h"
#include "practice/tsql/Keywords.h"
#include "practice/values/Languages.h"
#include "practice/values/Literals.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

struct Switch {
    std::string_view name;
    bool SessionOptions::*option;
};

constexpr Switch kSwitches[] = {
    {"NOCOUNT", &SessionOptions::noCount},
    {"XACT_ABORT", &SessionOptions::xactAbort},
    {"QUOTED_IDENTIFIER", &SessionOptions::quotedIdentifier},
    {"ANSI_NULLS", &SessionOptions::ansiNulls},
    {"ANSI_PADDING", &SessionOptions::ansiPadding},
    {"ANSI_WARNINGS", &SessionOptions::ansiWarnings},
    {"ARITHABORT", &SessionOptions::arithAbort},
    {"ARITHIGNORE", &SessionOptions::arithIgnore},
    {"CONCAT_NULL_YIELDS_NULL", &SessionOptions::concatNullYieldsNull},
    {"IMPLICIT_TRANSACTIONS", &SessionOptions::implicitTransactions},
    {"CURSOR_CLOSE_ON_COMMIT", &SessionOptions::cursorCloseOnCommit},
};

/// Switches that change nothing that can be seen here, whichever way they stand.
constexpr std::string_view kWithoutEffect[] = {"FORCEPLAN", "REMOTE_PROC_TRANSACTIONS", "NO_BROWSETABLE",
                                               "DISABLE_DEF_CNST_CHK"};

void SetNullDefault(SessionOptions& options, bool on) {
    options.ansiNullDefault = on;
    options.ansiNullDefaultOff = options.ansiNullDefaultOff && !on;
}

void SetAnsiDefaults(SessionOptions& options, bool on) {
    options.ansiNulls = on;
    SetNullDefault(options, on);
    options.ansiPadding = on;
    options.ansiWarnings = on;
    options.cursorCloseOnCommit = on;
    options.implicitTransactions = on;
    options.quotedIdentifier = on;
}

void SetSwitch(SessionState& session, const std::string& name, bool on) {
    if (session.Top().module && (name == "QUOTED_IDENTIFIER" || name == "ANSI_NULLS"))
        return; // a module keeps those it was made with
    for (const Switch& row : kSwitches) {
        if (row.name == name) {
            session.options.*(row.option) = on;
            return;
        }
    }
    if (name == "ANSI_DEFAULTS") {
        SetAnsiDefaults(session.options, on);
    } else if (name == "ANSI_NULL_DFLT_ON") {
        SetNullDefault(session.options, on);
    } else if (name == "ANSI_NULL_DFLT_OFF") {
        session.options.ansiNullDefaultOff = on;
        session.options.ansiNullDefault = session.options.ansiNullDefault && !on;
    } else if (name == "NOEXEC" || name == "PARSEONLY") {
        session.noExecute = on;
    } else if (name == "FMTONLY") {
        session.formatOnly = on;
    } else if (on && std::find(std::begin(kWithoutEffect), std::end(kWithoutEffect), name) ==
                         std::end(kWithoutEffect)) {
        throw SqlError::NotSupported("SET " + name + " ON");
    }
}

DateOrder DateOrderOf(const std::string& word) {
    static constexpr std::pair<std::string_view, DateOrder> rows[] = {
        {"MDY", DateOrder::Mdy}, {"DMY", DateOrder::Dmy}, {"YMD", DateOrder::Ymd},
        {"YDM", DateOrder::Ydm}, {"MYD", DateOrder::Myd}, {"DYM", DateOrder::Dym},
    };
    for (const auto& [name, order] : rows) {
        if (tsql::SameWord(name, word))
            return order;
    }
    throw SqlError(2741, {word});
}

void UseLanguage(SessionState& session, std::string_view name) {
    const bool british = name == "British";
    session.language = name;
    session.options.dateOrder = british ? DateOrder::Dmy : DateOrder::Mdy;
    session.options.dateFirst = british ? 1 : 7;
}

/// Of the languages there are, this server speaks English and British English alone.
bool IsSpoken(const Language& language) {
    return language.messages == usEnglishMessages;
}

void SetLanguage(SessionState& session, const std::string& word) {
    const Language* language = FindLanguage(word);
    if (language == nullptr)
        throw SqlError(2740, {word});
    if (!IsSpoken(*language))
        throw SqlError::NotSupported("SET LANGUAGE " + word);
    EnvironmentChange change;
    change.kind = EnvironmentChange::Kind::Language;
    change.oldValue = session.language;
    UseLanguage(session, language->name);
    change.newValue = session.language;
    session.sink.Environment(change);
    session.Inform(5703, MessageText(5703, {session.language}));
}

void SetContextInfo(SessionState& session, const Datum& value) {
    constexpr std::size_t size = 128;
    const Datum bytes = Convert(value, BinaryType(TypeId::VarBinary, size));
    session.contextInfo = bytes.IsNull() ? std::string() : bytes.Bytes();
    if (!session.contextInfo.empty())
        session.contextInfo.resize(size, '\0');
}

std::int64_t IntegerOf(const std::string& text) {
    try {
        return Convert(Datum::VarCharOf(text), SimpleType(TypeId::BigInt)).Integer();
    } catch (const SqlError&) {
        throw SqlError(102, {text});
    }
}

int DeadlockPriorityOf(const std::string& value) {
    static constexpr std::pair<std::string_view, int> words[] = {{"LOW", -5}, {"NORMAL", 0}, {"HIGH", 5}};
    for (const auto& [word, priority] : words)
        if (tsql::SameWord(word, value))
            return priority;
    return static_cast<int>(std::clamp<std::int64_t>(IntegerOf(value), -10, 10));
}

/// SET option value, for the options that have a value; the value as text.
void SetValue(SessionState& session, const std::string& option, const std::string& value) {
    if (option == "ROWCOUNT") {
        session.options.rowCount = std::max<std::int64_t>(IntegerOf(value), 0);
    } else if (option == "TEXTSIZE") {
        const std::int64_t size = IntegerOf(value);
        constexpr int least = 4096; // which 0 asks for; -1 is without a bound
        session.options.textSize =
            size == 0 ? least : static_cast<int>(std::clamp<std::int64_t>(size, -1, 2147483647));
    } else if (option == "DATEFIRST") {
        const std::int64_t day = IntegerOf(value);
        if (day < 1 || day > 7)
            throw SqlError(2742, {value});
        session.options.dateFirst = static_cast<int>(day);
    } else if (option == "DATEFORMAT") {
        session.options.dateOrder = DateOrderOf(value);
    } else if (option == "LANGUAGE") {
        SetLanguage(session, value);
    } else if (option == "LOCK_TIMEOUT") {
        session.store.SetLockTimeout(static_cast<int>(std::max<std::int64_t>(IntegerOf(value), -1)));
    } else if (option == "DEADLOCK_PRIORITY") {
        session.store.SetDeadlockPriority(DeadlockPriorityOf(value));
    } else if (option == "FIPS_FLAGGER" && !tsql::SameWord(value, "OFF")) {
        throw SqlError::NotSupported("SET FIPS_FLAGGER");
    }
    // QUERY_GOVERNOR_COST_LIMIT governs what never happens here.
}

void SetIdentityInsert(SessionState& session, const tsql::SetOptionStatement& statement) {
    const auto table =
        std::dynamic_pointer_cast<const Table>(session.Statements().FindObject(statement.table));
    if (!table)
        throw SqlError(1088, {statement.table.Text()});
    if (table->IdentityColumn() == nullptr)
        throw SqlError(8106, {statement.table.Text()});
    ObjectId& now = session.options.identityInsert;
    if (statement.value == "OFF") {
        now = now == table->id ? 0 : now;
        return;
    }
    if (now != 0 && now != table->id) {
        const auto other = session.store.View()->FindTable(now);
        if (other) {
            const Database* database = session.store.View()->FindDatabase(other->database);
            throw SqlError(8107, {database->name + "." + std::string(database->SchemaName(other->schema)) +
                                      "." + other->name,
                                  statement.table.Text()});
        }
    }
    now = table->id;
}

} // namespace

void RunSetOption(SessionState& session, const tsql::SetOptionStatement& statement) {
    const std::string& first = statement.options.front();
    if (first == "IDENTITY_INSERT")
        return SetIdentityInsert(session, statement);
    if (first == "TRANSACTION ISOLATION LEVEL") {
        session.isolation = statement.value;
        return;
    }
    if (first == "CONTEXT_INFO") {
        if (!statement.expression && !statement.value.starts_with("0x"))
            throw SqlError(102, {statement.value});
        return SetContextInfo(session, statement.expression
                                           ? session.Statements().Evaluate(*statement.expression)
                                           : BinaryLiteral(statement.value));
    }
    if (statement.expression) {
        const Datum value = session.Statements().Evaluate(*statement.expression);
        return SetValue(session, first, value.IsNull() ? std::string() : ToText(value));
    }
    const bool onOff = statement.value == "ON" || statement.value == "OFF";
    if (!onOff || first == "FIPS_FLAGGER")
        return SetValue(session, first, statement.value);
    for (const std::string& option : statement.options)
        SetSwitch(session, option, statement.value == "ON");
}

void SetLoginDefaults(SessionState& session, const std::string& language) {
    const bool odbc = session.facts.odbcDefaults;
    session.options = SessionOptions();
    session.options.quotedIdentifier = odbc;
    session.options.ansiNulls = odbc;
    session.options.ansiNullDefault = odbc;
    session.options.ansiPadding = odbc;
    session.options.ansiWarnings = odbc;
    session.options.concatNullYieldsNull = odbc;
    const Language* named = FindLanguage(language);
    UseLanguage(session, named != nullptr && IsSpoken(*named) ? named->name : "us_english");
}

} // namespace quillon::practice
