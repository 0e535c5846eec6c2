// Failures on their way into the script, and errors on their way out of it.
#include <cstdlib>

#include "jscript/Encoding.h"
#include "jscript/EngineReport.h"
#include "jscript/Errors.h"
#include "platform/FailureNumbers.h"

namespace quillon::jscript {
namespace {

std::string ReadText(duk_context* context, const char* property) {
    duk_get_prop_string(context, -1, property);
    duk_size_t length = 0;
    const char* const text = duk_get_lstring(context, -1, &length);
    std::string read = text == nullptr ? std::string() : Utf8FromCesu8({text, length});
    duk_pop(context);
    return read;
}

std::int32_t ReadNumber(duk_context* context, const char* property) {
    duk_get_prop_string(context, -1, property);
    const std::int32_t number = duk_is_number(context, -1) ? duk_to_int32(context, -1) : 0;
    duk_pop(context);
    return number;
}

std::string TextOf(std::int32_t number) {
    const std::string_view known = FailureText(number);
    return known.empty() ? "Unknown runtime error" : std::string(known);
}

} // namespace

void Engine::Throw(duk_context* context, std::int32_t number, const std::string& description) {
    duk_push_error_object(context, DUK_ERR_ERROR, "%s", "");
    PushText(context, description.empty() ? TextOf(number) : description);
    duk_dup_top(context);
    duk_put_prop_string(context, -3, "message");
    duk_put_prop_string(context, -2, "description");
    duk_push_int(context, WithFacility(number));
    duk_put_prop_string(context, -2, "number");
    duk_throw(context);
    std::abort(); // not reached; the header does not say so
}

void Engine::NotePlace(std::string file, std::int32_t line) {
    m_thrownFile = std::move(file);
    m_thrownLine = line;
}

// Reads with the error on top of the stack. What comes first matters most, should reading fail.
void Engine::DescribeError(Engine& engine, duk_context* context, void* data) {
    constexpr std::int32_t notCaught = 5022;
    Report& report = *static_cast<Report*>(data);
    report.file = engine.m_thrownFile;
    report.engineLine = engine.m_thrownLine;
    if (!duk_is_object(context, -1)) {
        report.number = notCaught;
        duk_size_t length = 0;
        const char* const text = duk_safe_to_lstring(context, -1, &length);
        report.description = "Exception thrown and not caught: " + Utf8FromCesu8({text, length});
        return;
    }
    report.errorClass = ReadText(context, "name");
    report.message = ReadText(context, "message");
    report.number = ReadNumber(context, "number");
    report.description = ReadText(context, "description");
    if (report.number == 0 && !duk_is_error(context, -1))
        report.number = notCaught;
    if (duk_is_error(context, -1)) { // asking for the place takes calls
        std::string made = ReadText(context, "fileName");
        if (engine.m_sources.Knows(made)) {
            report.file = std::move(made);
            report.engineLine = ReadNumber(context, "lineNumber");
        }
    }
}

void Engine::RaiseReported(ScriptError* error, bool compiling) {
    if (m_foreign)
        std::rethrow_exception(std::exchange(m_foreign, nullptr));
    Report& report = *m_report;
    KnownError known{WithoutFacility(report.number), report.description};
    if (m_stop || m_memory.IsShort()) {
        known.number = m_stop ? numbers::ScriptStopped : numbers::OutOfMemory;
        known.description = TextOf(known.number);
    } else if (known.number == 0) {
        const std::string description = std::move(known.description);
        known = KnownErrorOf(report.errorClass, report.message);
        if (!description.empty())
            known.description = description;
    }
    if (known.description.empty())
        known.description = report.message;
    if (report.place.line == 0)
        report.place = m_sources.PlaceOf(report.file, report.engineLine);
    std::string source =
        compiling ? "Microsoft JScript compilation error" : "Microsoft JScript runtime error";
    if (error != nullptr)
        *error = {known.number,
                  known.description,
                  report.place.line,
                  report.place.column,
                  m_sources.LineOf(report.file, report.place.line),
                  source};
    throw Failure(known.number, known.description, std::move(source));
}

} // namespace quillon::jscript
