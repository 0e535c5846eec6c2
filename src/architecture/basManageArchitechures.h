// Installing the structures of an architecture in the session's database, analysing them in words, and taking
// them out again: scripts into a run log, which is then shown. Failures of a script are lines of the log.
#pragma once

#include <span>
#include <string>

#include "architecture/clsQlnTemplate.h"
#include "execution/RunLog.h"

namespace quillon::basManageArchitechures {

// One installation script of a profile.
struct Part {
    const char* name;    // in the run log
    std::size_t box;     // of frmInstall
    const char* keyword; // at the command line
    std::string (clsQlnTemplate::*script)() const;
    bool isServerLevel = false; // its objects lie in master and tempdb
};

// In the order of installation, in which the aggregate report's script goes ahead of the standard one's.
std::span<const Part> Parts();

// Runs the chosen parts of the session's profile, each whatever became of the one before, into one log.
RunLog InstallParts(std::span<const Part* const> chosen);

// The analysis as the user reads it. Sets no flags.
RunLog Analyze();
void RunAnalyze();

// Drops the structures, after asking unless it is to be silent.
void DeleteArchitecture(bool isSilent, bool serverLevelToo);

} // namespace quillon::basManageArchitechures
