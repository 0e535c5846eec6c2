// The procedure trace: knows the chain of procedures at work, and is where every failure of the system ends.
//
// One object for the process, g_objTrace, created by basMain::Main (tests create their own) and never
// replaced while a procedure is at work. One thread. A procedure that gives the event loop a turn can see
// others pushed and popped on top of it; each one ends only its own entry and what was left above it.
//
// Every procedure of the system has this form:
//
//     bool frmMain::ProcessValidation() {
//         return g_objTrace->Procedure("frmMain.ProcessValidation", [&] {
//             ...
//             return true;
//         });
//     }
//
// A failure is reported once, by the procedure in which it arose, and never passed on: the caller goes on
// with the default result. Clean-up behind the failing statement does not run; that is the system's rule, and
// flags and the wait cursor stay as they were. RAII objects of C++ are of course released.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "shell/FailureReport.h"

namespace quillon {

struct Application;

class Trace {
  public:
    Trace() = default;
    Trace(const Trace&) = delete;
    Trace& operator=(const Trace&) = delete;

    // --- set-up, once at start ---
    // The program whose title and version a report names. It must outlive the trace.
    void SetApplication(const Application& application) { m_application = &application; }
    // Innermost procedure at work; empty when there is none.
    std::string Current() const;
    // Where a report may be mailed; the report names it.
    void SetMailAddress(std::string address) { m_mailAddress = std::move(address); }
    // Folder of the report file, with its trailing separator. Without it no file is written.
    void SetFolder(std::string folder) { m_folder = std::move(folder); }
    // Whether reports go to the report file as well as to the user. False at creation. The file keeps the
    // newest reports, about a megabyte of them.
    void SetOption(bool writesReportFile) { m_writesReportFile = writesReportFile; }

    // --- notes ---
    // A remark that goes with any failure until the next note; an empty text clears it.
    void SetNote(std::string note) { m_note = std::move(note); }
    const std::string& Note() const noexcept { return m_note; }

    // --- the chain ---
    // Enters a procedure. The result says that the entry was made.
    bool Push(std::string procedure);
    // Leaves the innermost procedure of this name, with whatever was left above it. False, and nothing
    // changes, when there is none.
    bool Pop(std::string_view procedure);
    // Procedures at work, from the outermost to the innermost.
    const std::vector<std::string>& Chain() const noexcept { return m_chain; }

    // --- failures ---
    // Records a failure of the innermost procedure, ends its entry, tells the user, and appends to the report
    // file. A report file that cannot be written is told to the user in the same box. A front end that fails
    // to show the box is a failure of the caller, and leaves this call as such. The result says that the
    // report file, if one is wanted, has it.
    bool Report(std::string_view description, double number, std::int32_t line, std::string_view note = {});

    // Runs `body` as the procedure `name`. On a failure (a Failure or any std::exception) the failure is
    // reported and the result is the default value of the body's result type. Anything that is no
    // std::exception is no failure and passes through; the chain is right again afterwards.
    template <class Body>
    std::invoke_result_t<Body&> Procedure(std::string name, Body&& body);

    // The last failures, oldest first, at most RecordsKept.
    const std::deque<FailureRecord>& Records() const noexcept { return m_records; }
    static constexpr std::size_t RecordsKept = 100;

    // Path of the report file; empty without a folder.
    std::string ReportFile() const;

  private:
    // Restores the depth of the chain however the procedure is left.
    class Entry {
      public:
        Entry(Trace& trace, std::string name)
            : m_trace(trace)
            , m_depth(trace.m_chain.size()) {
            trace.Push(std::move(name));
        }
        ~Entry() { m_trace.Shorten(m_depth); }
        Entry(const Entry&) = delete;
        Entry& operator=(const Entry&) = delete;
        std::size_t depth() const noexcept { return m_depth; }

      private:
        Trace& m_trace;
        std::size_t m_depth;
    };

    void Shorten(std::size_t depth) noexcept;
    // Reports the exception being handled as a failure of the procedure at `depth`; rethrows it if it is no
    // std::exception.
    void ReportCurrentException(std::size_t depth);
    FailureRecord MakeRecord(std::string_view description, double number, std::int32_t line,
                             std::string_view note) const;
    // Keeps the record, adds it to the report file and tells the user.
    bool Tell(FailureRecord record);
    // Empty when the record was added or no file is wanted; else why it was not.
    std::string AppendToFile(const FailureRecord& record) const;

    const Application* m_application = nullptr;
    std::string m_mailAddress;
    std::string m_folder;
    std::string m_note;
    bool m_writesReportFile = false;
    std::vector<std::string> m_chain;
    std::deque<FailureRecord> m_records;
};

template <class Body>
std::invoke_result_t<Body&> Trace::Procedure(std::string name, Body&& body) {
    using Result = std::invoke_result_t<Body&>;
    static_assert(!std::is_reference_v<Result>, "a procedure returns a value, so that it has a default");
    const Entry entry(*this, std::move(name));
    try {
        return body();
    } catch (...) {
        ReportCurrentException(entry.depth());
    }
    if constexpr (!std::is_void_v<Result>)
        return Result{};
}

// Written by basMain::Main, once.
extern std::unique_ptr<Trace> g_objTrace;

// For the few procedures that ignore failures and go on with the next statement: one call a statement.
template <class Statement>
void IgnoringFailures(Statement&& statement) {
    try {
        statement();
    } catch (const std::exception&) {
        // Wanted: the procedure that calls this has said that its failures do not matter to anyone.
    }
}

} // namespace quillon
