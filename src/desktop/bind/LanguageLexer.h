// Colours an editor's text by one of the system's language tables (platform/Editor.h).
//
// A pass over the text from the start of the first changed line; block comments and strings that go over
// lines are carried from line to line by the style of the line's end.
#pragma once

#include <Qsci/qscilexercustom.h>

#include <string>
#include <unordered_set>

#include "platform/Editor.h"

namespace quillon::desktop {

class LanguageLexer : public QsciLexerCustom {
  public:
    enum Style {
        Plain,
        LineComment,
        BlockComment,
        String,
        Number,
        Keyword,
        Operator,
        Member,
        ScopeTag,
        Styles
    };

    explicit LanguageLexer(const EditorLanguage& language, QObject* parent = nullptr);

    const char* language() const override { return m_language.Name.c_str(); }
    QString description(int style) const override;
    void styleText(int start, int end) override;
    // Takes the colours of the palette in use.
    void ApplyColours();

  private:
    // The bytes that one token takes from `from`, and its style.
    struct Token {
        std::size_t length;
        Style style;
    };
    Token NextToken(const std::string& text, std::size_t from) const;
    Token Comment(const std::string& text, std::size_t from) const;
    Token Quoted(const std::string& text, std::size_t from) const;
    Token Word(const std::string& text, std::size_t from) const;
    Token LongestOf(const std::vector<std::string>& words, const std::string& text, std::size_t from,
                    Style style) const;
    bool StartsWith(const std::string& text, std::size_t from, const std::string& word) const;
    std::size_t RestOfBlock(const std::string& text, std::size_t from) const;

    EditorLanguage m_language;
    std::unordered_set<std::string> m_keywords; // single words, in lower case unless case counts
    std::unordered_set<std::string> m_members;
    std::vector<std::string> m_phrases; // keywords that are more than one word
};

} // namespace quillon::desktop
