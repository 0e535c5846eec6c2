#include "shell/Trace.h"

#include <algorithm>
#include <new>
#include <stdexcept>
#include <system_error>

#include "platform/Clock.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "shell/Application.h"
#include "shell/Redaction.h"
#include "shell/Session.h"

namespace quillon {

std::unique_ptr<Trace> g_objTrace;

namespace {

constexpr const char* ReportFileName = "exception.txt";
// A run over thousands of tables can fail at each of them, day after day.
constexpr std::size_t MostReportBytes = std::size_t{1} << 20;

struct Caught {
    std::int32_t number;
    std::int32_t line;
    std::string description;
};

template <class Exception>
bool Is(const std::exception& error) {
    return dynamic_cast<const Exception*>(&error) != nullptr;
}

// The number that users of such hosts know for what the standard library raises.
std::int32_t NumberOf(const std::exception& error) {
    if (Is<std::bad_alloc>(error))
        return numbers::OutOfMemory;
    if (Is<std::bad_variant_access>(error) || Is<std::bad_cast>(error))
        return numbers::TypeMismatch;
    if (Is<std::bad_optional_access>(error) || Is<std::bad_function_call>(error))
        return numbers::ObjectNotSet;
    if (Is<std::out_of_range>(error))
        return numbers::SubscriptOutOfRange;
    if (Is<std::length_error>(error))
        return numbers::OutOfStringSpace;
    if (Is<std::overflow_error>(error) || Is<std::range_error>(error))
        return numbers::Overflow;
    if (Is<std::invalid_argument>(error) || Is<std::domain_error>(error))
        return numbers::InvalidCall;
    return numbers::Unspecified;
}

Caught Describe(const std::exception& error) {
    if (const auto* failure = dynamic_cast<const Failure*>(&error))
        return {failure->number(), failure->line(), failure->description()};
    const std::int32_t number = NumberOf(error);
    return {number, 0, std::string(FailureText(number)) + " (" + error.what() + ")"};
}

DateValue NowOrUnknown() {
    try {
        return ThePlatform().clock().Now();
    } catch (const std::exception&) {
        return {}; // a report without its time is worth more than none
    }
}

std::string Joined(const std::string& first, std::string_view second) {
    if (first.empty() || second.empty())
        return first + std::string(second);
    return first + "\r\n" + std::string(second);
}

// The newest reports of a file, about half of what it may hold, from the start of one on.
std::string_view NewestReports(std::string_view reports) {
    if (reports.size() <= MostReportBytes / 2)
        return reports;
    const auto lineEnd = reports.find(std::string("\n") + ReportStart, reports.size() - MostReportBytes / 2);
    return lineEnd == std::string_view::npos ? std::string_view() : reports.substr(lineEnd + 1);
}

void AddReport(const std::string& path, const std::string& report) {
    Files& files = ThePlatform().files();
    const std::string former = files.Exists(path) ? files.ReadAll(path) : std::string();
    if (former.size() + report.size() > MostReportBytes) {
        files.Replace(path, std::string(NewestReports(former)) + report);
        return;
    }
    const auto writer = files.OpenAppend(path);
    writer->Write(report);
    writer->Close();
}

} // namespace

std::string Trace::Current() const {
    return m_chain.empty() ? std::string() : m_chain.back();
}

std::string Trace::ReportFile() const {
    return m_folder.empty() ? std::string() : m_folder + ReportFileName;
}

bool Trace::Push(std::string procedure) {
    m_chain.push_back(std::move(procedure));
    return true;
}

bool Trace::Pop(std::string_view procedure) {
    const auto found = std::find(m_chain.rbegin(), m_chain.rend(), procedure);
    if (found == m_chain.rend())
        return false;
    Shorten(m_chain.size() - 1 - static_cast<std::size_t>(found - m_chain.rbegin()));
    return true;
}

void Trace::Shorten(std::size_t depth) noexcept {
    if (depth < m_chain.size())
        m_chain.erase(m_chain.begin() + static_cast<std::ptrdiff_t>(depth), m_chain.end());
}

bool Trace::Report(std::string_view description, double number, std::int32_t line, std::string_view note) {
    FailureRecord record = MakeRecord(description, number, line, note);
    // The entry ends before anyone is told: the box turns the event loop, and what runs then is not called by
    // the procedure that failed.
    if (!m_chain.empty())
        m_chain.pop_back();
    return Tell(std::move(record));
}

void Trace::ReportCurrentException(std::size_t depth) {
    try {
        throw;
    } catch (const std::exception& error) {
        const Caught caught = Describe(error);
        FailureRecord record = MakeRecord(caught.description, caught.number, caught.line, {});
        Shorten(depth);
        Tell(std::move(record));
    }
}

FailureRecord Trace::MakeRecord(std::string_view description, double number, std::int32_t line,
                                std::string_view note) const {
    const auto clean = [](std::string_view text) { return WithoutPasswords(text, g_strPassword); };
    FailureRecord record;
    record.Report.Description = clean(description);
    record.Report.Number = number;
    record.Report.SourceLine = line;
    std::ranges::transform(m_chain, std::back_inserter(record.Report.Procedures), clean);
    record.Report.Note = clean(Joined(m_note, note));
    record.Time = NowOrUnknown();
    record.Application = m_application == nullptr ? std::string() : m_application->TitleAndVersion();
    record.MailAddress = m_mailAddress;
    return record;
}

bool Trace::Tell(FailureRecord record) {
    const std::string trouble = AppendToFile(record);
    if (!trouble.empty())
        record.Report.Note = Joined(record.Report.Note, trouble);
    m_records.push_back(record);
    if (m_records.size() > RecordsKept)
        m_records.pop_front();
    ThePlatform().frontEnd().ReportFailure(record.Report);
    return trouble.empty();
}

std::string Trace::AppendToFile(const FailureRecord& record) const {
    const std::string path = ReportFile();
    if (path.empty() || !m_writesReportFile)
        return {};
    try {
        AddReport(path, TextOf(record));
        return {};
    } catch (const std::exception& error) {
        return "This report could not be added to " + path + ": " + error.what();
    }
}

} // namespace quillon
