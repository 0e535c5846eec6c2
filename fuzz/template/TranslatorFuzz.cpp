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
#include "template/basNewTemplate.h"
#include "template/basProcTemplate.h"

namespace {

using namespace quillon;

void Require(bool holds) {
    if (!holds)
        std::abort();
}

class TextLines : public LineReader {
  public:
    explicit TextLines(std::string_view text)
        : m_text(text) {}
    bool ReadLine(std::string& line) override {
        if (m_text.empty())
            return false;
        const std::size_t end = std::min(m_text.find_first_of("\r\n"), m_text.size());
        line = m_text.substr(0, end);
        m_text.remove_prefix(end);
        m_text.remove_prefix(m_text.starts_with("\r\n") ? 2 : m_text.empty() ? 0 : 1);
        return true;
    }

  private:
    std::string_view m_text;
};

std::string TranslateWhole(std::string_view text) {
    basNewTemplate::LineTranslator translator;
    TextLines lines(text);
    std::string script;
    for (std::string line; lines.ReadLine(line);)
        translator.Translate(line, script);
    Require(script.empty() || script.ends_with("\r\n"));
    basNewTemplate::ProcessScript(script);
    basProcTemplate::WrapCodeForExec(script);
    return script;
}

std::string TranslateStreamed(std::string_view text) {
    TextLines lines(text);
    std::string script;
    StreamScript(lines, [&](std::string_view piece) { script += piece; });
    return script;
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
    return 0;
}
