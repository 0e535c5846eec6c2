// Any bytes as a template: both roads of the translator give the same whole script, or report the same
// failures; and literal text comes back as it was. The first byte chooses the form.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "console/ConsoleFrontEnd.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "shell/Session.h"
#include "shell/Trace.h"
#include "template/ScriptStream.h"
#include "template/TextCase.h"
#include "template/TextLines.h"
#include "template/basNewTemplate.h"
#include "template/basProcTemplate.h"
#include "vbscript/VbScriptHost.h"

namespace {

using namespace quillon;

void Require(bool holds) {
    if (!holds)
        std::abort();
}

class ReaderOfText : public LineReader {
  public:
    explicit ReaderOfText(std::string_view text)
        : m_lines(text) {}
    bool ReadLine(std::string& line) override {
        std::string_view view;
        const bool found = m_lines.Take(view);
        line = view;
        return found;
    }

  private:
    TextLines m_lines;
};

std::string TranslateWhole(std::string_view text) {
    std::string script = basNewTemplate::TranslateText(text);
    Require(script.empty() || script.ends_with("\r\n"));
    basNewTemplate::ProcessScript(script);
    basProcTemplate::WrapCodeForExec(script);
    return script;
}

std::string TranslateStreamed(std::string_view text) {
    ReaderOfText lines(text);
    std::string script;
    StreamScript(lines, [&](std::string_view piece) { script += piece; });
    return script;
}

// What the text is when everything with a meaning in templates or in the script language's encoding is left
// out.
std::string LiteralOf(std::string_view text) {
    std::string literal;
    for (std::size_t offset = 0; offset < text.size();) {
        const std::string_view character = text.substr(offset, CharacterSize(text, offset));
        offset += character.size();
        const auto lead = static_cast<unsigned char>(character[0]);
        const bool isPlain = character.size() == 1 && lead < 0x80 && lead != 0 && lead != '"' && lead != '%';
        const bool isWide = character.size() == 2 || (character.size() == 3 && lead != 0xE0 && lead != 0xED);
        if (isPlain || isWide)
            literal += character;
    }
    return FindFolded(literal, "objAudit.Print") == std::string::npos ? literal : std::string();
}

// What the script of such a text returns: its lines, but those of blanks alone without their blanks.
std::string ExpectedOutput(std::string_view literal) {
    TextLines lines(literal);
    std::string output;
    for (std::string_view line; lines.Take(line);)
        output.append(line.find_first_not_of(' ') == std::string::npos ? "" : line).append("\r\n");
    return output;
}

void CheckLiteral(const std::string& literal) {
    static vbscript::VbScriptHost host;
    host.SetLanguage("VBScript");
    host.Reset();
    host.AddCode(TranslateWhole(literal));
    const Value output = host.Run("ReturnThis");
    Require(literal.empty() ? output.IsEmpty() : output == Value(ExpectedOutput(literal)));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    static std::FILE* nowhere = std::fopen("/dev/null", "w");
    console::ConsoleFrontEnd frontEnd(nowhere);
    const Platform platform({.frontEnd = &frontEnd});
    g_objTrace = std::make_unique<Trace>();
    g_bolJScript = (data[0] & 1) != 0;
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);

    const std::string whole = TranslateWhole(text);
    const int failures = frontEnd.Failures();
    Require(TranslateStreamed(text) == whole);
    Require(frontEnd.Failures() == 2 * failures);
    Require(g_objTrace->Chain().empty());
    Require(whole.starts_with(basProcTemplate::BeforeBody()) &&
            whole.ends_with(basProcTemplate::BehindBody()));
    // A quote grows most: to sixteen characters, and a line of its own by statement and line break.
    Require(whole.size() <= text.size() * 64 + 128);
    g_bolJScript = false;
    if (failures == 0) // a line that is too long would be left out
        CheckLiteral(LiteralOf(text));
    return 0;
}
