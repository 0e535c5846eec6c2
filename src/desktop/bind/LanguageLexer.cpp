#include "desktop/bind/LanguageLexer.h"

#include <Qsci/qsciscintilla.h>

#include <algorithm>
#include <cctype>

#include "desktop/Theme.h"
#include "desktop/bind/Text.h"

namespace quillon::desktop {
namespace {

char Lower(char c) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

std::string Lower(std::string text) {
    std::ranges::transform(text, text.begin(), [](char c) { return Lower(c); });
    return text;
}

bool IsWordByte(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return std::isalnum(byte) != 0 || c == '_' || c == '@' || c == '#' || c == '$' || byte >= 0x80;
}

bool IsWord(const std::string& text) {
    return std::ranges::all_of(text, IsWordByte);
}

} // namespace

LanguageLexer::LanguageLexer(const EditorLanguage& language, QObject* parent)
    : QsciLexerCustom(parent)
    , m_language(language) {
    const auto key = [this](const std::string& word) {
        return m_language.CaseSensitive ? word : Lower(word);
    };
    for (const std::string& word : m_language.Keywords)
        if (IsWord(word))
            m_keywords.insert(key(word));
        else
            m_phrases.push_back(word);
    for (const std::string& member : m_language.TagElementNames)
        m_members.insert(key(member.starts_with('.') ? member.substr(1) : member));
    ApplyColours();
}

QString LanguageLexer::description(int style) const {
    static const char* const names[Styles] = {"Plain",    "Line comment", "Block comment",
                                              "String",   "Number",       "Keyword",
                                              "Operator", "Member",       "Scope tag"};
    return style >= 0 && style < Styles ? QString(names[style]) : QString();
}

void LanguageLexer::ApplyColours() {
    const Theme& theme = Theme::Current();
    setDefaultPaper(theme.base);
    setDefaultColor(theme.text);
    const QFont font = Theme::EditorFont();
    setDefaultFont(font);
    const QColor colours[Styles] = {theme.text,    theme.comment, theme.comment, theme.string, theme.number,
                                    theme.keyword, theme.text,    theme.member,  theme.tag};
    for (int style = 0; style < Styles; ++style) {
        setPaper(theme.base, style);
        setColor(colours[style], style);
        QFont shown = font;
        shown.setBold(style == Keyword || style == ScopeTag);
        setFont(shown, style);
    }
}

bool LanguageLexer::StartsWith(const std::string& text, std::size_t from, const std::string& word) const {
    if (word.empty() || text.size() - from < word.size())
        return false;
    return std::equal(word.begin(), word.end(), text.begin() + static_cast<std::ptrdiff_t>(from),
                      [this](char left, char right) {
                          return m_language.CaseSensitive ? left == right : Lower(left) == Lower(right);
                      });
}

std::size_t LanguageLexer::RestOfBlock(const std::string& text, std::size_t from) const {
    for (std::size_t at = from; at < text.size(); ++at)
        if (StartsWith(text, at, m_language.MultiLineCommentEnd))
            return at + m_language.MultiLineCommentEnd.size() - from;
    return text.size() - from;
}

LanguageLexer::Token LanguageLexer::Comment(const std::string& text, std::size_t from) const {
    if (StartsWith(text, from, m_language.SingleLineComment)) {
        const auto end = text.find_first_of("\r\n", from);
        return {(end == std::string::npos ? text.size() : end) - from, LineComment};
    }
    if (StartsWith(text, from, m_language.MultiLineCommentStart)) {
        const std::size_t head = m_language.MultiLineCommentStart.size();
        return {head + RestOfBlock(text, from + head), BlockComment};
    }
    return {0, Plain};
}

// A string ends at its delimiter or, since most are meant for one line, at the line's end.
LanguageLexer::Token LanguageLexer::Quoted(const std::string& text, std::size_t from) const {
    const char delimiter = text[from];
    std::size_t at = from + 1;
    while (at < text.size() && text[at] != '\n' && text[at] != '\r')
        if (text[at++] == delimiter)
            break;
    return {at - from, String};
}

LanguageLexer::Token LanguageLexer::Word(const std::string& text, std::size_t from) const {
    std::size_t end = from;
    while (end < text.size() && IsWordByte(text[end]))
        ++end;
    const std::string word = text.substr(from, end - from);
    const std::string key = m_language.CaseSensitive ? word : Lower(word);
    if (from > 0 && text[from - 1] == '.' && m_members.contains(key))
        return {end - from, Member};
    if (std::isdigit(static_cast<unsigned char>(word.front())) != 0)
        return {end - from, Number};
    return {end - from, m_keywords.contains(key) ? Keyword : Plain};
}

LanguageLexer::Token LanguageLexer::LongestOf(const std::vector<std::string>& words, const std::string& text,
                                              std::size_t from, Style style) const {
    std::size_t longest = 0;
    for (const std::string& word : words)
        if (StartsWith(text, from, word))
            longest = std::max(longest, word.size());
    return {longest, style};
}

LanguageLexer::Token LanguageLexer::NextToken(const std::string& text, std::size_t from) const {
    if (const Token tag = LongestOf(m_language.ScopeTags, text, from, ScopeTag); tag.length > 0)
        return tag;
    if (const Token comment = Comment(text, from); comment.length > 0)
        return comment;
    if (m_language.StringDelimiters.find(text[from]) != std::string::npos)
        return Quoted(text, from);
    if (const Token phrase = LongestOf(m_phrases, text, from, Keyword); phrase.length > 0)
        return phrase;
    if (IsWordByte(text[from]))
        return Word(text, from);
    return {1, std::ispunct(static_cast<unsigned char>(text[from])) != 0 ? Operator : Plain};
}

void LanguageLexer::styleText(int start, int end) {
    QsciScintilla& shown = *editor();
    const auto line = shown.SendScintilla(QsciScintillaBase::SCI_LINEFROMPOSITION, start);
    const auto first = shown.SendScintilla(QsciScintillaBase::SCI_POSITIONFROMLINE, line);
    const bool inBlock =
        first > 0 && shown.SendScintilla(QsciScintillaBase::SCI_GETSTYLEAT, first - 1) == BlockComment;
    std::string text(static_cast<std::size_t>(end - first), '\0');
    std::vector<char> bytes(text.size() + 1);
    shown.SendScintilla(QsciScintillaBase::SCI_GETTEXTRANGE, static_cast<int>(first), end, bytes.data());
    text.assign(bytes.data(), text.size());

    startStyling(static_cast<int>(first));
    std::size_t at = inBlock ? RestOfBlock(text, 0) : 0;
    if (at > 0)
        setStyling(static_cast<int>(at), BlockComment);
    while (at < text.size()) {
        const Token token = NextToken(text, at);
        setStyling(static_cast<int>(token.length), token.style);
        at += token.length;
    }
}

} // namespace quillon::desktop
