#include "shell/Redaction.h"

#include <algorithm>
#include <cctype>

namespace quillon {
namespace {

constexpr std::string_view Mask = "***";

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

bool IsLineEnd(char c) {
    return c == '\r' || c == '\n';
}

bool StartsWithWord(std::string_view text, std::string_view lowerWord) {
    return text.size() >= lowerWord.size() &&
           std::equal(lowerWord.begin(), lowerWord.end(), text.begin(), [](char expected, char c) {
               return expected == std::tolower(static_cast<unsigned char>(c));
           });
}

std::size_t Blanks(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::find_if_not(text, IsBlank) - text.begin());
}

// Length of a quoted value with its quotes, a doubled closing quote being part of it; 0 for a bare one.
std::size_t QuotedLength(std::string_view text) {
    const std::size_t prefix = text.starts_with("N'") ? 1 : 0;
    if (text.size() <= prefix)
        return 0;
    const char open = text[prefix];
    if (open != '\'' && open != '"' && open != '{')
        return 0;
    const char close = open == '{' ? '}' : open;
    for (std::size_t at = prefix + 1; at < text.size(); ++at) {
        if (text[at] != close)
            continue;
        if (at + 1 == text.size() || text[at + 1] != close)
            return at + 1;
        ++at;
    }
    return text.size();
}

std::size_t ElementLength(std::string_view text) {
    return std::min(text.find_first_of(";\r\n"), text.size());
}

bool StartsWithKnown(std::string_view text, std::string_view known) {
    return !known.empty() && text.starts_with(known);
}

// An argument reaches to the next option: passwords with blanks are passed unquoted.
std::size_t ArgumentLength(std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (IsLineEnd(text[at]))
            return at;
        const std::string_view rest = text.substr(at);
        if (rest.size() >= 3 && IsBlank(rest[0]) && rest[1] == '-' &&
            std::isalpha(static_cast<unsigned char>(rest[2])) != 0)
            return at;
    }
    return text.size();
}

class Redactor {
  public:
    Redactor(std::string_view text, std::string_view known)
        : m_rest(text)
        , m_known(known) {}

    std::string Run() {
        while (!m_rest.empty())
            if (!TakeKeyword("password") && !TakeKeyword("pwd") && !TakeOption())
                Copy(1);
        return std::move(m_result);
    }

  private:
    void Copy(std::size_t length) {
        m_result += m_rest.substr(0, length);
        m_rest.remove_prefix(length);
    }

    void Hide(std::size_t length) {
        if (length > 0)
            m_result += Mask;
        m_rest.remove_prefix(length);
    }

    bool TakeKeyword(std::string_view word) {
        if (!StartsWithWord(m_rest, word))
            return false;
        const std::size_t sign = word.size() + Blanks(m_rest.substr(word.size()));
        if (sign >= m_rest.size() || m_rest[sign] != '=')
            return false;
        Copy(sign + 1);
        Copy(Blanks(m_rest));
        if (m_rest.starts_with(';'))
            TakeNamelessElement();
        else
            HideValue(ElementLength(m_rest));
        return true;
    }

    // The session's undo connection passes its password as the element behind an empty Pwd.
    void TakeNamelessElement() {
        Copy(1);
        const std::size_t length = ElementLength(m_rest);
        if (StartsWithKnown(m_rest, m_known) || m_rest.substr(0, length).find('=') == std::string_view::npos)
            HideValue(length);
    }

    bool TakeOption() {
        const bool begins =
            m_result.empty() || std::isspace(static_cast<unsigned char>(m_result.back())) != 0;
        if (!begins || !m_rest.starts_with("-P"))
            return false;
        Copy(2);
        Copy(Blanks(m_rest));
        HideValue(ArgumentLength(m_rest));
        return true;
    }

    void HideValue(std::size_t bareLength) {
        if (StartsWithKnown(m_rest, m_known))
            Hide(std::max(m_known.size(), bareLength));
        else if (const std::size_t quoted = QuotedLength(m_rest); quoted > 0)
            Hide(quoted);
        else
            Hide(bareLength);
    }

    std::string_view m_rest;
    std::string_view m_known;
    std::string m_result;
};

} // namespace

std::string WithoutPasswords(std::string_view text, std::string_view knownPassword) {
    return Redactor(text, knownPassword).Run();
}

} // namespace quillon
