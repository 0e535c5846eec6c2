#include "template/TemplateLine.h"

#include <cstddef>

#include "template/TextCase.h"
#include "template/basStringFunctions.h"

namespace quillon {

const ScriptForm VBScriptForm{"strVar = strVar  & \"", "strVar = strVar  &  vbCrlf\r\n",
                              "strVar = strVar & "};
const ScriptForm JScriptForm{"strVar = strVar  + \"", "strVar = strVar  + \"\\n\"\r\n", "strVar = strVar + "};

namespace {

constexpr std::string_view OpenTag = "{%";
constexpr std::string_view CloseTag = "%}";
constexpr std::string_view PrintCall = "objAudit.Print";
constexpr auto NotFound = std::string_view::npos;

// One pass, as the pieces move down.
void RemoveAll(std::string& text, std::string_view removed) {
    std::size_t at = text.find(removed);
    std::size_t kept = at;
    while (at != NotFound) {
        const std::size_t from = at + removed.size();
        at = text.find(removed, from);
        const std::size_t size = (at == NotFound ? text.size() : at) - from;
        std::char_traits<char>::move(text.data() + kept, text.data() + from, size);
        kept += size;
    }
    if (kept != NotFound)
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

void AppendReplacingCalls(std::string& body, std::string_view text, std::string_view replacement) {
    std::size_t copied = 0;
    for (std::size_t at; (at = FindPrintCall(text, copied)) != NotFound; copied = at + PrintCall.size())
        body.append(text, copied, at - copied).append(replacement);
    body.append(text, copied);
}

// Without the delimiters that made it code.
std::string_view WithoutOwnDelimiters(std::string_view code) {
    if (code.starts_with(OpenTag))
        code.remove_prefix(OpenTag.size());
    if (code.ends_with(CloseTag))
        code.remove_suffix(CloseTag.size());
    return code;
}

} // namespace

LineParts PartsOf(std::string_view line, bool& isInTag) noexcept {
    LineParts parts;
    if (line.find(OpenTag[1]) == NotFound) { // no delimiter of either kind
        (isInTag ? parts.code : parts.after) = line;
        return parts;
    }
    const std::size_t open = line.find(OpenTag);
    const std::size_t close = line.find(CloseTag, open == NotFound ? 0 : open + 1);
    const std::size_t codeEnd = close == NotFound ? line.size() : close + CloseTag.size();
    if (open != NotFound) // a fresh tag, even while an older one is open
        parts = {line.substr(0, open), line.substr(open, codeEnd - open), line.substr(codeEnd)};
    else if (isInTag)
        parts = {{}, line.substr(0, codeEnd), line.substr(codeEnd)};
    else if (close == NotFound)
        parts.after = line;
    else
        parts.isStrayClose = true;
    if (close != NotFound)
        isInTag = false;
    else if (open != NotFound)
        isInTag = true;
    return parts;
}

void AppendQuoted(std::string& body, std::string_view literal) {
    std::size_t copied = 0;
    for (std::size_t at; (at = literal.find('"', copied)) != NotFound; copied = at + 1)
        body.append(literal, copied, at - copied).append("\" & Chr(34) & \"");
    body.append(literal, copied);
}

void AppendCode(std::string& body, std::string_view code, const ScriptForm& form) {
    std::string_view statement = WithoutOwnDelimiters(code);
    std::string rewritten;
    // Code rarely holds delimiters besides its own; "{%}" is one whose two share a character.
    if (statement.starts_with(CloseTag[1]) || statement.find(OpenTag[1]) != NotFound) {
        rewritten = code;
        RewriteCode(rewritten, form);
        statement = rewritten;
    }
    statement = basStringFunctions::LeftTrim(statement);
    if (statement.empty())
        return;
    AppendReplacingCalls(body, statement, form.print);
    body += "\r\n";
}

void RewriteTagsAndCalls(std::string& text, const ScriptForm& form) {
    RemoveAll(text, CloseTag);
    RemoveAll(text, OpenTag);
    if (FindPrintCall(text, 0) == NotFound)
        return;
    std::string replaced;
    replaced.reserve(text.size() + text.size() / 4);
    AppendReplacingCalls(replaced, text, form.print);
    text = std::move(replaced);
}

void RewriteCode(std::string& text, const ScriptForm& form) {
    RewriteTagsAndCalls(text, form);
    text.erase(0, text.size() - basStringFunctions::LeftTrim(text).size());
}

bool IsBlank(std::string_view text) noexcept {
    return text.find_first_not_of(' ') == NotFound;
}

bool IsBlankWithoutTabs(std::string_view text) noexcept {
    return std::ranges::all_of(text, [](char c) { return c == ' ' || c == '\t'; });
}

} // namespace quillon
