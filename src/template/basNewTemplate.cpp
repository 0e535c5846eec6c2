#include "template/basNewTemplate.h"

#include <cstddef>
#include <limits>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Files.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/Session.h"
#include "shell/Trace.h"
#include "template/TextCase.h"
#include "template/basStringFunctions.h"

namespace quillon::basNewTemplate {
namespace {

constexpr std::string_view OpenTag = "{%";
constexpr std::string_view CloseTag = "%}";
constexpr std::string_view PrintCall = "objAudit.Print";
constexpr auto NotFound = std::string_view::npos;

// Positions in a line are 16-bit numbers.
constexpr std::size_t LongestLine = std::numeric_limits<std::int16_t>::max();

// How a statement of the body reads in the script's language.
struct Form {
    std::string_view beforeLiteral; // up to and with the opening quote
    std::string_view lineBreak;     // a whole statement
    std::string_view print;         // what an output call becomes
};
constexpr Form VBScriptForm{"strVar = strVar  & \"", "strVar = strVar  &  vbCrlf\r\n", "strVar = strVar & "};
constexpr Form JScriptForm{"strVar = strVar  + \"", "strVar = strVar  + \"\\n\"\r\n", "strVar = strVar + "};

const Form& FormInForce() {
    return g_bolJScript ? JScriptForm : VBScriptForm;
}

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(' ') == NotFound;
}

bool IsBlankWithoutTabs(std::string_view text) {
    return text.find_first_not_of(" \t") == NotFound;
}

void RequireReadableLength(std::string_view line) {
    if (line.size() > LongestLine && CharacterCount(line) > LongestLine)
        throw Failure(numbers::Overflow);
}

void WarnOfStrayClose(std::string_view line) {
    ThePlatform().frontEnd().Message("Line can not be interpreted\r\n\r\n" + std::string(line),
                                     "Syntax warning", Icon::Warning);
}

// One pass, as the pieces move down; what the removal brings together is not looked at again.
void RemoveAll(std::string& text, std::string_view removed) {
    std::size_t at = text.find(removed);
    if (at == NotFound)
        return;
    std::size_t kept = at;
    while (at != NotFound) {
        const std::size_t from = at + removed.size();
        at = text.find(removed, from);
        const std::size_t size = (at == NotFound ? text.size() : at) - from;
        std::char_traits<char>::move(text.data() + kept, text.data() + from, size);
        kept += size;
    }
    text.resize(kept);
}

// Where the output call stands next, in any case. Looks for the dot, which is rarer than letters.
std::size_t FindPrintCall(std::string_view text, std::size_t from) {
    constexpr std::size_t dotOffset = PrintCall.find('.');
    for (std::size_t dot = text.find('.', from + dotOffset); dot != NotFound; dot = text.find('.', dot + 1)) {
        const std::size_t start = dot - dotOffset;
        if (EqualFolded(text.substr(start, PrintCall.size()), PrintCall))
            return start;
    }
    return NotFound;
}

void ReplacePrintCalls(std::string& text) {
    std::size_t at = FindPrintCall(text, 0);
    if (at == NotFound)
        return;
    std::string replaced;
    replaced.reserve(text.size() + text.size() / 4);
    std::size_t copied = 0;
    for (; at != NotFound; at = FindPrintCall(text, copied)) {
        replaced.append(text, copied, at - copied).append(FormInForce().print);
        copied = at + PrintCall.size();
    }
    replaced.append(text, copied);
    text = std::move(replaced);
}

// Collects the body's statements, in the fixed order in which the parts of a line are emitted.
class BodyWriter {
  public:
    void WriteLine(std::string_view line, bool& isInTag) {
        std::string_view before;
        std::string_view after;
        std::string_view code;
        ProcessTags(line, isInTag, before, after, code);
        if (!IsBlankWithoutTabs(before))
            WriteLiteral(before);
        if (!code.empty())
            WriteCode(code);
        if (!IsBlank(after))
            WriteLiteral(after);
        // Tabs count as text here and not above: a tag indented by tabs leaves a line break, one indented by
        // blanks leaves none. Templates are written with that in mind.
        const bool hasText = !IsBlank(after) || (!IsBlank(before) && !isInTag);
        if (hasText || (IsBlank(line) && !isInTag))
            m_body += m_form.lineBreak;
    }

    std::string Take() { return std::move(m_body); }

  private:
    void WriteLiteral(std::string_view text) {
        m_body += m_form.beforeLiteral;
        m_body += ProcessQuotes(text);
        m_body += "\"\r\n";
    }

    void WriteCode(std::string_view code) {
        std::string statement(code);
        ProcessScript(statement);
        if (!IsBlank(statement)) {
            m_body += statement;
            m_body += "\r\n";
        }
    }

    const Form& m_form = FormInForce();
    std::string m_body;
};

} // namespace

std::string TemplateFile() {
    return ThePlatform().files().ApplicationFolder() + "\\template.txt";
}

std::string OutputFile() {
    return ThePlatform().files().ApplicationFolder() + "\\output.txt";
}

std::string ProcessFile() {
    return g_objTrace->Procedure("basNewTemplate.ProcessFile", [] {
        Files& files = ThePlatform().files();
        const auto input = files.OpenInput(TemplateFile());
        const auto output = files.OpenOutput(OutputFile());
        std::string body = TranslateLines(*input);
        output->Write(body);
        output->Close();
        return body;
    });
}

std::string TranslateLines(LineReader& input) {
    BodyWriter writer;
    bool isInTag = false;
    std::string line;
    while (input.ReadLine(line))
        writer.WriteLine(line, isInTag);
    return writer.Take();
}

void ProcessTags(std::string_view line, bool& isInTag, std::string_view& before, std::string_view& after,
                 std::string_view& code) {
    g_objTrace->Procedure("basNewTemplate.ProcessTags", [&] {
        RequireReadableLength(line);
        const std::size_t open = line.find(OpenTag);
        const std::size_t close = line.find(CloseTag, open == NotFound ? 0 : open + 1);
        const std::size_t codeEnd = close == NotFound ? line.size() : close + CloseTag.size();
        if (open != NotFound) {
            // A fresh tag, even while an older one is open.
            before = line.substr(0, open);
            code = line.substr(open, codeEnd - open);
            after = line.substr(codeEnd);
        } else if (isInTag) {
            code = line.substr(0, codeEnd);
            after = line.substr(codeEnd);
        } else if (close == NotFound) {
            after = line;
        } else {
            WarnOfStrayClose(line);
        }
        if (close != NotFound)
            isInTag = false;
        else if (open != NotFound)
            isInTag = true;
    });
}

std::string ProcessQuotes(std::string_view text) {
    return g_objTrace->Procedure("basNewTemplate.ProcessQuotes", [&] {
        std::string quoted;
        std::size_t copied = 0;
        for (std::size_t at; (at = text.find('"', copied)) != NotFound; copied = at + 1)
            quoted.append(text, copied, at - copied).append("\" & Chr(34) & \"");
        return quoted.append(text, copied);
    });
}

void ProcessScript(std::string& text) {
    g_objTrace->Procedure("basNewTemplate.ProcessScript", [&] {
        RemoveAll(text, CloseTag);
        RemoveAll(text, OpenTag);
        ReplacePrintCalls(text);
        text.erase(0, text.size() - basStringFunctions::LeftTrim(text).size());
    });
}

} // namespace quillon::basNewTemplate
