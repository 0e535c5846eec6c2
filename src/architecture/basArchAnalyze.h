// Which of the audit structures exist in the session's database. The answer comes from the database itself,
// from its procedure AUDIT_prc_Analyze; nothing is cached, every question is one call.
#pragma once

#include <cstdint>

namespace quillon::basArchAnalyze {

// In the order of the procedure's parameters.
struct Structures {
    bool Ddl = false;
    bool Identity = false;
    bool View = false;
    bool Standard = false;
    bool Aggregate = false;
    bool Purge = false;
    bool Undo = false;
    bool Delete = false;
    bool Analyze = false;
};

// Fills the flags and returns the procedure's return value. A failure, such as a missing procedure, is
// reported and leaves the flags as they came.
std::int32_t Exec_AUDIT_prc_Analyze(Structures& found);

void Analyze_AnalyzeAndRemove(bool& canAnalyze, bool& canRemove);
bool Analyze_ReportStandard();
bool Analyze_ReportAggregate();
bool Analyze_UnDo();

// Tells that structures are missing and offers the architecture manager.
void ArchCheck();

} // namespace quillon::basArchAnalyze
