#include "practice/catalogue/LockProcedures.h"

#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

constexpr SystemProcedure rows[] = {
    {"sp_getapplock",
     R"(CREATE PROCEDURE sys.sp_getapplock @Resource nvarchar(255), @LockMode varchar(32),
    @LockOwner varchar(32) = 'Transaction', @LockTimeout int = NULL, @DbPrincipal sysname = 'public' AS
SET NOCOUNT ON
DECLARE @result int
IF @LockMode IS NULL OR @LockMode NOT IN ('Shared', 'Update', 'Exclusive', 'IntentShared', 'IntentExclusive')
BEGIN
    EXEC sys.q_raise 15625, @LockMode, '@LockMode'
    RETURN -999
END
IF @LockOwner IS NULL OR @LockOwner NOT IN ('Transaction', 'Session')
BEGIN
    EXEC sys.q_raise 15625, @LockOwner, '@LockOwner'
    RETURN -999
END
IF @LockOwner = 'Transaction' AND @@TRANCOUNT = 0
BEGIN
    EXEC sys.q_raise 15626
    RETURN -999
END
SET @LockTimeout = ISNULL(@LockTimeout, @@LOCK_TIMEOUT)
IF @Resource IS NULL OR @LockTimeout < -1
    RETURN -999
EXEC @result = sys.q_getapplock @Resource, @LockMode, @LockOwner, @LockTimeout
RETURN @result
)"},
    {"sp_releaseapplock",
     R"(CREATE PROCEDURE sys.sp_releaseapplock @Resource nvarchar(255), @LockOwner varchar(32) = 'Transaction',
    @DbPrincipal sysname = 'public' AS
SET NOCOUNT ON
DECLARE @result int
IF @LockOwner IS NULL OR @LockOwner NOT IN ('Transaction', 'Session')
BEGIN
    EXEC sys.q_raise 15625, @LockOwner, '@LockOwner'
    RETURN -999
END
EXEC @result = sys.q_releaseapplock @Resource, @LockOwner, @DbPrincipal
RETURN ISNULL(@result, -999)
)"},
    {"sp_lock", R"(CREATE PROCEDURE sys.sp_lock @spid1 int = NULL, @spid2 int = NULL AS
SET NOCOUNT ON
SELECT spid = CONVERT(smallint, request_session_id), dbid = CONVERT(smallint, resource_database_id),
    ObjId = CONVERT(int, CASE resource_type WHEN 'OBJECT' THEN resource_associated_entity_id ELSE 0 END),
    IndId = CONVERT(smallint, 0), Type = CONVERT(nchar(4), CASE resource_type WHEN 'OBJECT' THEN 'TAB'
        WHEN 'APPLICATION' THEN 'APP' WHEN 'FILE' THEN 'FIL' END),
    Resource = CONVERT(nchar(32), resource_description), Mode = CONVERT(nvarchar(8), request_mode),
    Status = CONVERT(nvarchar(5), request_status)
FROM sys.dm_tran_locks
WHERE @spid1 IS NULL OR request_session_id IN (@spid1, @spid2) ORDER BY 1, 2, 3
)"},
};

LockMode ModeOf(const std::string& word) {
    static constexpr std::pair<std::string_view, LockMode> modes[] = {
        {"IntentShared", LockMode::IntentShared},
        {"Shared", LockMode::Shared},
        {"Update", LockMode::Update},
        {"IntentExclusive", LockMode::IntentExclusive},
    };
    for (const auto& [name, mode] : modes)
        if (SameName(name, word))
            return mode;
    return LockMode::Exclusive;
}

LockName NameOf(NativeHost& host, const Datum& resource) {
    return {LockName::Kind::Application, host.CurrentDatabase(), 0, resource.Text()};
}

bool ForSession(const Datum& owner) {
    return SameName("Session", owner.Text());
}

} // namespace

std::span<const SystemProcedure> LockProcedures() {
    return rows;
}

int TakeApplicationLock(NativeHost& host, std::span<const Datum> arguments) {
    const WantedLock wanted{NameOf(host, arguments[0]), ModeOf(arguments[1].Text())};
    const auto timeout = static_cast<int>(arguments[3].Integer());
    switch (host.Store().LockApplication(wanted, ForSession(arguments[2]), timeout)) {
    case Locks::Outcome::Taken: return 0;
    case Locks::Outcome::TakenAfterWaiting: return 1;
    case Locks::Outcome::TimedOut: return -1;
    case Locks::Outcome::Victim: return -3;
    case Locks::Outcome::Interrupted: break;
    }
    throw Interrupted();
}

int ReleaseApplicationLock(NativeHost& host, std::span<const Datum> arguments) {
    if (arguments[0].IsNull() ||
        !host.Store().UnlockApplication(NameOf(host, arguments[0]), ForSession(arguments[1])))
        throw SqlError(1223, {arguments[2].Text(), arguments[0].IsNull() ? "" : arguments[0].Text()});
    return 0;
}

} // namespace quillon::practice
