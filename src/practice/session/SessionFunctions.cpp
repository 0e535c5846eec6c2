#include "practice/session/SessionFunctions.h"

#include "practice/catalogue/Metadata.h"
#include "practice/session/Messages.h"
#include "practice/session/SessionState.h"
#include "practice/session/SettingValues.h"

#include <chrono>
#include <ctime>

namespace quillon::practice {

Moment PresentMoment() {
    using namespace std::chrono;
    const auto sinceEpoch = duration_cast<nanoseconds>(system_clock::now().time_since_epoch()).count() / 100;
    constexpr std::int64_t epochDay = 719162; // 1970-01-01
    return Moment::FromTotalTicks(epochDay * ticksPerDay + sinceEpoch);
}

Moment SessionFunctions::UtcNow() {
    return m_session.now;
}

int SessionFunctions::ZoneOffsetMinutes() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return static_cast<int>(local.tm_gmtoff / 60);
}

ConvertOptions SessionFunctions::Options() {
    ConvertOptions options;
    options.dateOrder = m_session.options.dateOrder;
    return options;
}

int SessionFunctions::DateFirst() {
    return m_session.options.dateFirst;
}
int SessionFunctions::SessionId() {
    return m_session.facts.spid;
}
std::string SessionFunctions::HostName() {
    return m_session.facts.hostName;
}
std::string SessionFunctions::ApplicationName() {
    return m_session.facts.applicationName;
}
std::string SessionFunctions::LoginName() {
    return m_session.LoginName();
}
std::string SessionFunctions::OriginalLogin() {
    return m_session.facts.login;
}
std::string SessionFunctions::UserName() {
    return m_session.UserName();
}
std::string SessionFunctions::DatabaseName() {
    return m_session.DatabaseName();
}
std::string SessionFunctions::ServerName() {
    return m_session.server.name;
}

const CaughtError* SessionFunctions::Caught() {
    // A procedure that a CATCH block calls sees the block's error.
    for (auto frame = m_session.frames.rbegin(); frame != m_session.frames.rend(); ++frame) {
        if (!(*frame)->caught.empty())
            return &(*frame)->caught.back();
    }
    return nullptr;
}

std::string SessionFunctions::ContextInfo() {
    return m_session.contextInfo;
}

Datum SessionFunctions::SessionContext(std::string_view key) {
    const auto found = m_session.sessionContext.find(FoldName(key));
    return found == m_session.sessionContext.end() ? Datum::Null(SimpleType(TypeId::SqlVariant))
                                                   : found->second.first;
}

int SessionFunctions::TransactionState() {
    if (m_session.store.TransactionCount() == 0)
        return 0;
    return m_session.store.Doomed() ? -1 : 1;
}

Datum SessionFunctions::ScopeIdentity() {
    // A function asks for the scope of the statement that calls it.
    for (auto frame = m_session.frames.rbegin(); frame != m_session.frames.rend(); ++frame) {
        if ((*frame)->kind != FrameKind::Function)
            return (*frame)->scopeIdentity;
    }
    return Datum::Null(DecimalType(38, 0, TypeId::Numeric));
}

int SessionFunctions::TriggerNestLevel() {
    return static_cast<int>(
        std::count_if(m_session.frames.begin(), m_session.frames.end(),
                      [](const auto& frame) { return frame->kind == FrameKind::Trigger; }));
}

int SessionFunctions::CursorStatus(std::string_view scope, std::string_view name) {
    const std::string key = FoldName(name);
    const Cursor* cursor = nullptr;
    if (SameName(scope, "global")) {
        const auto found = m_session.globalCursors.find(key);
        cursor = found == m_session.globalCursors.end() ? nullptr : found->second.get();
    } else if (!m_session.frames.empty()) {
        const auto& local = m_session.Top().cursors;
        const auto found = local.find(key);
        if (found != local.end() && found->second == nullptr)
            return -2; // a variable to which no cursor is assigned
        cursor = found == local.end() ? nullptr : found->second.get();
    }
    if (cursor == nullptr)
        return -3;
    if (!cursor->IsOpen())
        return -1;
    return cursor->RowCount() > 0 ? 1 : 0;
}

Datum SessionFunctions::IsColumnUpdated(int columnId) {
    const TriggerFrame* trigger = m_session.Context().CurrentTrigger();
    if (trigger == nullptr)
        return Datum::Null(SimpleType(TypeId::Bit));
    return Datum::Bit(trigger->IsUpdated(columnId));
}

Datum SessionFunctions::AskCatalogue(std::string_view function, const Datum* arguments, int count) {
    const std::span<const Datum> given(arguments, static_cast<std::size_t>(count));
    if (function == "FORMATMESSAGE")
        return FormattedMessage(m_session, given);
    MetadataSurroundings surroundings{
        m_session.store, m_session.database, dboSchema, dboPrincipal, {}, true, {}, {}};
    surroundings.userIn = [this](const Database& database) { return m_session.UserIn(database); };
    surroundings.defaultSchema = m_session.Context().DefaultSchema();
    surroundings.user = m_session.UserId();
    surroundings.login = m_session.LoginName();
    surroundings.administrator = m_session.IsAdministrator();
    surroundings.serverName = m_session.server.name;
    if (auto answer = AnswerMetadata(function, given, surroundings))
        return *std::move(answer);
    return AnswerSetting(m_session, function, given);
}

double SessionFunctions::NextRandom() {
    return std::uniform_real_distribution<double>(0.0, 1.0)(m_session.chance);
}

void SessionFunctions::SeedRandom(int seed) {
    m_session.chance.seed(static_cast<std::uint64_t>(seed));
}

} // namespace quillon::practice
