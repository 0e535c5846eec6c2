// What the trace keeps of a failure, and its text.
//
// Made by: the trace. Read by: the report file, tests. The part that the user sees is the front end's
// FailureReport. Passwords are taken out before anything is kept (Redaction.h), so a record can be shown,
// written or mailed as it is.
#pragma once

#include <string>

#include "platform/FrontEnd.h"
#include "platform/Value.h"

namespace quillon {

struct FailureRecord {
    FailureReport Report;
    DateValue Time;          // local
    std::string Application; // title and version
    std::string MailAddress; // where the report may be sent
};

// The record as lines that end with CR LF, as the report file keeps it; the first begins with ReportStart.
inline constexpr const char* ReportStart = "---- ";
std::string TextOf(const FailureRecord& record);

// "13", "0x80040E21": results with a facility are known by their hexadecimal form, all others by the decimal.
std::string FailureNumberText(double number);

} // namespace quillon
