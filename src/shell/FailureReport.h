// What a failure report holds, and its text.
//
// Made by: the trace. Read by: the box that tells the user, the report file, tests.
// Texts are stored with passwords already taken out, so a report can be shown, written or mailed as it is.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Value.h"

namespace quillon {

struct FailureReport {
    std::string Description;
    double Number = 0;
    std::int32_t Line = 0;          // of our source; 0 when unknown
    std::vector<std::string> Chain; // procedures from the outermost to the one that failed
    std::string Note;               // given with this report alone
    std::string LastNote;           // the remark that was set on the trace
    DateValue Time;
    std::string Application; // title and version
};

// The report as lines joined by CR LF; what the user reads and what the report file keeps.
std::string TextOf(const FailureReport& report);

// "13", "0x80040E21": COM results are known by their hexadecimal form, all others by the decimal one.
std::string FailureNumberText(double number);

} // namespace quillon
