#include "template/basNewTemplate.h"

#include <cstddef>
#include <cstdint>
#include <limits>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Files.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/Session.h"
#include "shell/Trace.h"
#include "template/TextCase.h"
#include "template/TextLines.h"

namespace quillon::basNewTemplate {
namespace {

// Positions in a line are 16-bit numbers.
constexpr std::size_t LongestLine = std::numeric_limits<std::int16_t>::max();

} // namespace

const ScriptForm& FormInForce() {
    return g_bolJScript ? JScriptForm : VBScriptForm;
}

LineTranslator::LineTranslator()
    : m_form(FormInForce()) {}

void LineTranslator::Translate(std::string_view line, std::string& body) {
    const LineParts parts = Classify(line);
    if (!IsBlankWithoutTabs(parts.before))
        WriteLiteral(parts.before, body);
    if (!parts.code.empty())
        AppendCode(body, parts.code, m_form);
    const bool textBehind = !IsBlank(parts.after);
    if (textBehind)
        WriteLiteral(parts.after, body);
    // Tabs count as text here and not above: a tag indented by tabs leaves a line break, one indented by
    // blanks leaves none. Templates are written with that in mind.
    const bool textBefore = !IsBlank(parts.before) || IsBlank(line);
    if (textBehind || (textBefore && !m_isInTag))
        body += m_form.lineBreak;
}

// Entering a procedure costs more than reading a line, so only lines that have something to report go through
// it.
LineParts LineTranslator::Classify(std::string_view line) {
    LineParts parts;
    const bool couldBeTooLong = line.size() > LongestLine;
    if (!couldBeTooLong)
        parts = PartsOf(line, m_isInTag);
    if (couldBeTooLong || parts.isStrayClose)
        ProcessTags(line, m_isInTag, parts.before, parts.after, parts.code);
    return parts;
}

void LineTranslator::WriteLiteral(std::string_view text, std::string& body) const {
    body += m_form.beforeLiteral;
    AppendQuoted(body, text);
    body += "\"\r\n";
}

std::string TemplateFile() {
    return ThePlatform().files().ApplicationFolder() + "\\template.txt";
}

std::string OutputFile() {
    return ThePlatform().files().ApplicationFolder() + "\\output.txt";
}

std::string ProcessFile() {
    return g_objTrace->Procedure("basNewTemplate.ProcessFile", [] {
        Files& files = ThePlatform().files();
        const std::string templateText = files.ReadAll(TemplateFile());
        const auto output = files.OpenOutput(OutputFile());
        std::string body = TranslateText(templateText);
        output->Write(body);
        output->Close();
        return body;
    });
}

std::string TranslateText(std::string_view templateText) {
    // Statements make about three times the text of their lines. Growing instead would touch all memory
    // twice; what is reserved in vain is never touched.
    std::string body;
    body.reserve(templateText.size() * 4);
    LineTranslator translator;
    TextLines lines(templateText);
    for (std::string_view line; lines.Take(line);)
        translator.Translate(line, body);
    return body;
}

void ProcessTags(std::string_view line, bool& isInTag, std::string_view& before, std::string_view& after,
                 std::string_view& code) {
    g_objTrace->Procedure("basNewTemplate.ProcessTags", [&] {
        if (CharacterCount(line) > LongestLine)
            throw Failure(numbers::Overflow);
        const LineParts parts = PartsOf(line, isInTag);
        before = parts.before;
        after = parts.after;
        code = parts.code;
        if (parts.isStrayClose)
            ThePlatform().frontEnd().Message("Line can not be interpreted\r\n\r\n" + std::string(line),
                                             "Syntax warning", Icon::Warning);
    });
}

std::string ProcessQuotes(std::string_view text) {
    return g_objTrace->Procedure("basNewTemplate.ProcessQuotes", [&] {
        std::string quoted;
        AppendQuoted(quoted, text);
        return quoted;
    });
}

void ProcessScript(std::string& text) {
    g_objTrace->Procedure("basNewTemplate.ProcessScript", [&] { RewriteCode(text, FormInForce()); });
}

} // namespace quillon::basNewTemplate
