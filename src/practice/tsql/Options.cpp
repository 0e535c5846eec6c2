#include "practice/tsql/Options.h"

#include "practice/tsql/Keywords.h"

#include <span>

namespace quillon::practice::tsql {

namespace {

constexpr std::string_view kNever;
constexpr std::string_view kAlways = "*";

struct Row {
    std::string_view name;
    std::string_view refused = kNever; // the value, kNever or kAlways
};

constexpr Row kIndex[] = {{"PAD_INDEX"},
                          {"FILLFACTOR"},
                          {"SORT_IN_TEMPDB"},
                          {"IGNORE_DUP_KEY"},
                          {"STATISTICS_NORECOMPUTE"},
                          {"STATISTICS_INCREMENTAL"},
                          {"DROP_EXISTING"},
                          {"ONLINE"},
                          {"RESUMABLE"},
                          {"MAX_DURATION"},
                          {"ALLOW_ROW_LOCKS"},
                          {"ALLOW_PAGE_LOCKS"},
                          {"OPTIMIZE_FOR_SEQUENTIAL_KEY"},
                          {"MAXDOP"},
                          {"DATA_COMPRESSION"},
                          {"XML_COMPRESSION"},
                          {"LOB_COMPACTION"},
                          {"COMPRESS_ALL_ROW_GROUPS"},
                          {"WAIT_AT_LOW_PRIORITY"},
                          {"COMPRESSION_DELAY", kAlways},
                          {"BUCKET_COUNT", kAlways}};

constexpr Row kTable[] = {{"DATA_COMPRESSION"},
                          {"XML_COMPRESSION"},
                          {"LOCK_ESCALATION"},
                          {"FILESTREAM_ON"},
                          {"MEMORY_OPTIMIZED", "ON"},
                          {"DURABILITY", kAlways},
                          {"SYSTEM_VERSIONING", "ON"},
                          {"DATA_DELETION", "ON"},
                          {"REMOTE_DATA_ARCHIVE", "ON"},
                          {"LEDGER", "ON"},
                          {"FILETABLE_DIRECTORY", kAlways},
                          {"FILETABLE_COLLATE_FILENAME", kAlways}};

constexpr Row kStatistics[] = {{"FULLSCAN"},    {"SAMPLE"},   {"RESAMPLE"}, {"NORECOMPUTE"},
                               {"INCREMENTAL"}, {"MAXDOP"},   {"ALL"},      {"PERSIST_SAMPLE_PERCENT"},
                               {"COLUMNS"},     {"INDEX"},    {"ROWCOUNT"}, {"STATS_STREAM", kAlways},
                               {"AUTO_DROP"},   {"PAGECOUNT"}};

// What ALTER DATABASE may set. The defaults for connections that set nothing themselves are refused where a
// driver's connection would see them.
constexpr Row kDatabase[] = {{"SINGLE_USER"},
                             {"MULTI_USER"},
                             {"RESTRICTED_USER", kAlways},
                             {"READ_ONLY"},
                             {"READ_WRITE"},
                             {"ONLINE"},
                             {"OFFLINE", kAlways},
                             {"EMERGENCY", kAlways},
                             {"ENABLE_BROKER"},
                             {"DISABLE_BROKER"},
                             {"NEW_BROKER"},
                             {"ERROR_BROKER_CONVERSATIONS"},
                             {"HONOR_BROKER_PRIORITY"},
                             {"ACCELERATED_DATABASE_RECOVERY"},
                             {"AUTO_CLOSE"},
                             {"AUTO_CREATE_STATISTICS"},
                             {"AUTO_SHRINK"},
                             {"AUTO_UPDATE_STATISTICS"},
                             {"AUTO_UPDATE_STATISTICS_ASYNC"},
                             {"AUTOMATIC_TUNING"},
                             {"CHANGE_TRACKING", "ON"},
                             {"CONTAINMENT", "PARTIAL"},
                             {"CURSOR_CLOSE_ON_COMMIT"},
                             {"CURSOR_DEFAULT"},
                             {"PARTNER", kAlways},
                             {"WITNESS", kAlways},
                             {"DATE_CORRELATION_OPTIMIZATION"},
                             {"ENCRYPTION", "ON"},
                             {"DELAYED_DURABILITY"},
                             {"DB_CHAINING"},
                             {"TRUSTWORTHY"},
                             {"DEFAULT_FULLTEXT_LANGUAGE"},
                             {"DEFAULT_LANGUAGE"},
                             {"NESTED_TRIGGERS"},
                             {"TRANSFORM_NOISE_WORDS"},
                             {"TWO_DIGIT_YEAR_CUTOFF"},
                             {"FILESTREAM"},
                             {"HADR", kAlways},
                             {"MIXED_PAGE_ALLOCATION"},
                             {"PARAMETERIZATION"},
                             {"QUERY_STORE"},
                             {"RECOVERY"},
                             {"TORN_PAGE_DETECTION"},
                             {"PAGE_VERIFY"},
                             {"REMOTE_DATA_ARCHIVE", "ON"},
                             {"ALLOW_SNAPSHOT_ISOLATION"},
                             {"READ_COMMITTED_SNAPSHOT"},
                             {"MEMORY_OPTIMIZED_ELEVATE_TO_SNAPSHOT"},
                             {"ANSI_NULL_DEFAULT"},
                             {"ANSI_NULLS"},
                             {"ANSI_PADDING"},
                             {"ANSI_WARNINGS"},
                             {"ARITHABORT", "ON"},
                             {"COMPATIBILITY_LEVEL"},
                             {"CONCAT_NULL_YIELDS_NULL"},
                             {"NUMERIC_ROUNDABORT", "ON"},
                             {"QUOTED_IDENTIFIER"},
                             {"RECURSIVE_TRIGGERS"},
                             {"TARGET_RECOVERY_TIME"},
                             {"TEMPORAL_HISTORY_RETENTION"},
                             {"STALE_PAGE_DETECTION"},
                             {"SUPPLEMENTAL_LOGGING"},
                             {"VARDECIMAL_STORAGE_FORMAT"}};

constexpr Row kNewDatabase[] = {{"FILESTREAM"},
                                {"DEFAULT_FULLTEXT_LANGUAGE"},
                                {"DEFAULT_LANGUAGE"},
                                {"NESTED_TRIGGERS"},
                                {"TRANSFORM_NOISE_WORDS"},
                                {"TWO_DIGIT_YEAR_CUTOFF"},
                                {"DB_CHAINING", "ON"},
                                {"TRUSTWORTHY", "ON"},
                                {"CATALOG_COLLATION"},
                                {"PERSISTENT_LOG_BUFFER"},
                                {"LEDGER", "ON"}};

std::span<const Row> RowsOf(OptionPlace place) {
    switch (place) {
    case OptionPlace::Index: return kIndex;
    case OptionPlace::Table: return kTable;
    case OptionPlace::Statistics: return kStatistics;
    case OptionPlace::Database: return kDatabase;
    case OptionPlace::NewDatabase: return kNewDatabase;
    }
    return {};
}

constexpr std::string_view kQueryHints[] = {
    "HASH GROUP",
    "ORDER GROUP",
    "CONCAT UNION",
    "HASH UNION",
    "MERGE UNION",
    "LOOP JOIN",
    "MERGE JOIN",
    "HASH JOIN",
    "DISABLE_OPTIMIZED_PLAN_FORCING",
    "EXPAND VIEWS",
    "FAST",
    "FORCE ORDER",
    "FORCE EXTERNALPUSHDOWN",
    "DISABLE EXTERNALPUSHDOWN",
    "FORCE SCALEOUTEXECUTION",
    "DISABLE SCALEOUTEXECUTION",
    "IGNORE_NONCLUSTERED_COLUMNSTORE_INDEX",
    "KEEP PLAN",
    "KEEPFIXED PLAN",
    "LABEL",
    "MAX_GRANT_PERCENT",
    "MIN_GRANT_PERCENT",
    "MAXDOP",
    "MAXRECURSION",
    "NO_PERFORMANCE_SPOOL",
    "OPTIMIZE FOR",
    "OPTIMIZE FOR UNKNOWN",
    "PARAMETERIZATION SIMPLE",
    "PARAMETERIZATION FORCED",
    "QUERYTRACEON",
    "RECOMPILE",
    "ROBUST PLAN",
    "TABLE HINT",
    "USE HINT",
    "USE PLAN",
};

} // namespace

void CheckOption(const ParseState& state, OptionPlace place, const OptionSetting& option, Position at,
                 std::string_view words) {
    const std::span<const Row> rows = RowsOf(place);
    const auto row =
        std::find_if(rows.begin(), rows.end(), [&](const Row& one) { return one.name == option.name; });
    if (row == rows.end() && words.empty())
        state.Fail(102, {option.name}, at);
    if (row == rows.end())
        state.Fail(155, {option.name, words}, at);
    if (row->refused == kAlways || (row->refused != kNever && SameWord(row->refused, option.value)))
        state.Refuse(option.value.empty() ? option.name : option.name + " = " + option.value, at);
}

void CheckOptions(const ParseState& state, OptionPlace place, const std::vector<OptionSetting>& options,
                  Position at, std::string_view words) {
    for (const OptionSetting& option : options)
        CheckOption(state, place, option, at, words);
}

bool IsQueryHint(std::string_view words) {
    return std::find(std::begin(kQueryHints), std::end(kQueryHints), words) != std::end(kQueryHints);
}

} // namespace quillon::practice::tsql
