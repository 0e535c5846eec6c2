#include "jscript/Rewriter.h"

#include <algorithm>

#include "jscript/Tokens.h"

namespace quillon::jscript {
namespace {

class Rewriting {
  public:
    Rewriting(std::string_view script, const IsGlobalMember& isGlobalMember)
        : m_script(script)
        , m_isGlobalMember(isGlobalMember)
        , m_tokens(Tokenize(script)) {}

    std::string Run() {
        for (std::size_t i = 0; i < m_tokens.size(); ++i) {
            if (m_tokens[i].kind != TokenKind::Word)
                continue;
            if (Is(i - 1, "."))
                MarkCall(i);
            else
                FreeWord(i);
        }
        return Applied();
    }

  private:
    struct Edit {
        std::size_t offset, erased;
        std::string inserted;
    };

    bool Is(std::size_t index, std::string_view text) const {
        return index < m_tokens.size() && m_tokens[index].text == text &&
               m_tokens[index].kind != TokenKind::Text;
    }

    void Replace(const Token& token, std::string text) {
        m_edits.push_back({token.offset, token.text.size(), std::move(text)});
    }
    void InsertBehind(const Token& token, std::string text) {
        m_edits.push_back({token.offset + token.text.size(), 0, std::move(text)});
    }

    // The point goes, the name becomes a subscript; blanks and line ends between them stay.
    void MarkCall(std::size_t word) {
        const Token& name = m_tokens[word];
        if (!Is(word + 1, "(") || name.text.find('\\') != std::string_view::npos)
            return;
        const std::size_t closing = ClosingOf(word + 1);
        const bool isAssigned = IsAssignment(closing + 1);
        Replace(m_tokens[word - 1], "");
        Replace(name, (isAssigned ? "[$put(\"" : "[$called(\"") + std::string(name.text) + "\")]");
        if (isAssigned)
            InsertBehind(m_tokens[closing], "[$assigned()]");
    }

    // `f(x) = value`
    bool MarkIndexed(std::size_t word) {
        const std::size_t closing = Is(word + 1, "(") ? ClosingOf(word + 1) : m_tokens.size();
        if (!IsAssignment(closing + 1) || IsOperatorWord(m_tokens[word].text))
            return false;
        Replace(m_tokens[word], "$indexed(" + std::string(m_tokens[word].text) + ")");
        InsertBehind(m_tokens[closing], "[$assigned()]");
        return true;
    }

    // The bracket that closes the one at `open`; the count of tokens if none does.
    std::size_t ClosingOf(std::size_t open) const {
        int depth = 0;
        for (std::size_t i = open; i < m_tokens.size(); ++i) {
            if (IsOpening(i))
                ++depth;
            else if (IsClosing(i) && --depth == 0)
                return i;
        }
        return m_tokens.size();
    }

    // One equals sign and no more.
    bool IsAssignment(std::size_t i) const {
        return Is(i, "=") && !(Is(i + 1, "=") && m_tokens[i + 1].offset == m_tokens[i].offset + 1);
    }

    void FreeWord(std::size_t word) {
        const std::string_view text = m_tokens[word].text;
        if (text == "while" && Is(word + 1, "("))
            InsertBehind(m_tokens[word + 1], "$poll(),");
        else if (text == "for" && Is(word + 1, "("))
            PollInFor(word + 1);
        else if (text == "function")
            PollInFunction(word);
        else if (Is(word - 1, "function") || MarkIndexed(word))
            return;
        else if (m_isGlobalMember && Is(word + 1, "(") && m_isGlobalMember(text))
            Replace(m_tokens[word], "($called(\"" + std::string(text) + "\")," + std::string(text) + ")");
    }

    // for (a; b; c): the condition asks. for (a in b) ends by itself.
    void PollInFor(std::size_t open) {
        int depth = 0;
        for (std::size_t i = open; i < m_tokens.size(); ++i) {
            if (IsOpening(i))
                ++depth;
            else if (IsClosing(i) && --depth == 0)
                return;
            if (depth == 1 && Is(i, ";")) {
                InsertBehind(m_tokens[i], Is(i + 1, ";") ? "$poll()" : "$poll(),");
                return;
            }
        }
    }

    // Behind the brace that opens the body, unless the body begins with a directive, which must stay first.
    void PollInFunction(std::size_t word) {
        std::size_t i = word + 1;
        if (i < m_tokens.size() && m_tokens[i].kind == TokenKind::Word)
            ++i;
        if (!Is(i, "("))
            return;
        while (i < m_tokens.size() && !Is(i, ")"))
            ++i;
        if (Is(i + 1, "{") && i + 2 < m_tokens.size() && m_tokens[i + 2].kind != TokenKind::Text)
            InsertBehind(m_tokens[i + 1], "$poll();");
    }

    bool IsOpening(std::size_t i) const { return Is(i, "(") || Is(i, "[") || Is(i, "{"); }
    bool IsClosing(std::size_t i) const { return Is(i, ")") || Is(i, "]") || Is(i, "}"); }

    std::string Applied() {
        std::ranges::stable_sort(m_edits, {}, &Edit::offset);
        std::string text;
        std::size_t copied = 0;
        for (const Edit& edit : m_edits) {
            text.append(m_script.substr(copied, edit.offset - copied)).append(edit.inserted);
            copied = edit.offset + edit.erased;
        }
        return text.append(m_script.substr(copied));
    }

    std::string_view m_script;
    const IsGlobalMember& m_isGlobalMember;
    std::vector<Token> m_tokens;
    std::vector<Edit> m_edits;
};

} // namespace

std::string Rewrite(std::string_view script, const IsGlobalMember& isGlobalMember) {
    return Rewriting(script, isGlobalMember).Run();
}

} // namespace quillon::jscript
