#include "shell/FailureReport.h"

#include <cstdio>

#include "platform/Conversion.h"

namespace quillon {
namespace {

constexpr const char* LineEnd = "\r\n";

std::string Line(const char* label, const std::string& text) {
    return text.empty() ? std::string() : label + text + LineEnd;
}

} // namespace

std::string FailureNumberText(double number) {
    if (number >= 0 || number < -2147483648.0)
        return conversion::TextOf(number);
    char text[16];
    std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(static_cast<std::int32_t>(number)));
    return text;
}

std::string TextOf(const FailureRecord& record) {
    const FailureReport& report = record.Report;
    std::string text = ReportStart + conversion::TextOf(record.Time) + LineEnd;
    text += Line("Program: ", record.Application);
    text += Line("Failure: ", report.Description);
    text += Line("Number: ", FailureNumberText(report.Number));
    if (report.SourceLine > 0)
        text += Line("Source line: ", std::to_string(report.SourceLine));
    for (const std::string& procedure : report.Procedures)
        text += Line("In: ", procedure);
    text += Line("Note: ", report.Note);
    return text + Line("Reports may be sent to: ", record.MailAddress);
}

} // namespace quillon
