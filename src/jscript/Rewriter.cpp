#include "jscript/Rewriter.h"

#include <algorithm>
#include <array>

#include "jscript/Brackets.h"
#include "jscript/TextEdits.h"
#include "jscript/Tokens.h"

namespace quillon::jscript {
namespace {

class Rewriting {
  public:
    Rewriting(std::string_view script, const IsGlobalMember& isGlobalMember)
        : m_script(script)
        , m_isGlobalMember(isGlobalMember)
        , m_tokens(Tokenize(script))
        , m_edits(script) {}

    Rewritten Run() {
        for (std::size_t i = 0; i < m_tokens.size(); ++i) {
            if (m_tokens[i].startsStatement)
                BeginLine(i);
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
    bool Is(std::size_t index, std::string_view text) const {
        return index < m_tokens.size() && m_tokens[index].text == text &&
               m_tokens[index].kind != TokenKind::Text;
    }

    void Replace(const Token& token, std::string text) {
        m_edits.Replace(token.offset, token.text.size(), std::move(text));
    }
    void InsertBehind(const Token& token, std::string text) {
        m_edits.Insert(token.offset + token.text.size(), std::move(text));
    }

    void BeginLine(std::size_t word) {
        const Token& token = m_tokens[word];
        if (word > 0 && !IsEmptyStatement(word) && IsOnLineOf(m_tokens[word - 1], token))
            m_edits.Insert(token.offset, "\n");
        if (word == 0 && token.kind == TokenKind::Text)
            m_edits.Insert(token.offset, ";"); // so that it is no directive: this language has no strict mode
    }

    // What no error can come from.
    bool IsEmptyStatement(std::size_t i) const {
        return Is(i, "{") || Is(i, "}") || Is(i, ";") || Is(i, ")");
    }

    bool IsOnLineOf(const Token& before, const Token& token) const {
        std::size_t at = before.offset + before.text.size();
        while (at < token.offset && LineEndAt(m_script, at) == 0)
            ++at;
        return at == token.offset;
    }

    // The point goes, the name becomes a subscript; blanks and line ends between them stay.
    void MarkCall(std::size_t word) {
        const Token& name = m_tokens[word];
        if (!Is(word + 1, "(") || name.text.find('\\') != std::string_view::npos)
            return;
        const std::size_t closing = ClosingOf(word + 1);
        const bool isAssigned = IsAssignment(closing + 1) || IsStep(closing);
        Replace(m_tokens[word - 1], "");
        Replace(name, (isAssigned ? "[$put(\"" : "[$called(\"") + std::string(name.text) + "\")]");
        if (isAssigned)
            MarkAssignedCall(word + 1, closing);
    }

    // `f(x) = value`, `f(x)++`
    bool MarkIndexed(std::size_t word) {
        const std::size_t closing = Is(word + 1, "(") ? ClosingOf(word + 1) : m_tokens.size();
        if (!(IsAssignment(closing + 1) || IsStep(closing)) || IsOperatorWord(m_tokens[word].text))
            return false;
        Replace(m_tokens[word], "$indexed(" + std::string(m_tokens[word].text) + ")");
        MarkAssignedCall(word + 1, closing);
        return true;
    }

    // The last argument tells who is called that a value follows.
    void MarkAssignedCall(std::size_t open, std::size_t closing) {
        m_edits.Insert(m_tokens[closing].offset, closing == open + 1 ? "$value" : ",$value");
        InsertBehind(m_tokens[closing], "[$assigned()]");
    }

    // The bracket that closes the one at `open`; the count of tokens if none does.
    std::size_t ClosingOf(std::size_t open) const {
        int depth = 0;
        for (std::size_t i = open; i < m_tokens.size(); ++i) {
            if (Is(i, "(") || Is(i, "[") || Is(i, "{"))
                ++depth;
            else if ((Is(i, ")") || Is(i, "]") || Is(i, "}")) && --depth == 0)
                return i;
        }
        return m_tokens.size();
    }

    // An equals sign, alone or at the end of an operator that reads what it writes.
    bool IsAssignment(std::size_t i) const {
        const std::string_view marks = MarksFrom(i);
        const std::size_t before = std::min(marks.find('='), marks.size());
        static constexpr std::array<std::string_view, 12> operators{"",  "+", "-", "*",  "/",  "%",
                                                                    "&", "|", "^", "<<", ">>", ">>>"};
        return before < marks.size() && !marks.substr(before + 1).starts_with('=') &&
               std::ranges::find(operators, marks.substr(0, before)) != operators.end();
    }

    // `object.Item(x)++`, on one line; not `if (x) ++y`.
    bool IsStep(std::size_t closing) const {
        const std::string_view marks = MarksFrom(closing + 1);
        return (marks.starts_with("++") || marks.starts_with("--")) &&
               !m_tokens[closing + 1].startsStatement && IsOnLineOf(m_tokens[closing], m_tokens[closing + 1]);
    }

    // The marks that stand one behind the other from there, as many as an operator can have and one more.
    std::string_view MarksFrom(std::size_t first) const {
        constexpr std::size_t most = 5;
        std::size_t count = 0;
        while (count < most && first + count < m_tokens.size() &&
               m_tokens[first + count].kind == TokenKind::Mark &&
               m_tokens[first + count].offset == m_tokens[first].offset + count)
            ++count;
        return count == 0 ? std::string_view() : m_script.substr(m_tokens[first].offset, count);
    }

    void FreeWord(std::size_t word) {
        const std::string_view text = m_tokens[word].text;
        if (text == "typeof")
            MarkTypeof(word);
        else if (text == "function")
            MarkFunction(word);
        else if (Is(word - 1, "function"))
            return;
        else if (text == "eval" && Is(word + 1, "("))
            MarkEval(word + 1);
        else if (!MarkIndexed(word) && m_isGlobalMember && Is(word + 1, "(") && m_isGlobalMember(text))
            Replace(m_tokens[word], "($called(\"" + std::string(text) + "\")," + std::string(text) + ")");
    }

    // Behind the brace that opens the body.
    void MarkFunction(std::size_t word) {
        std::size_t i = word + 1;
        if (i < m_tokens.size() && m_tokens[i].kind == TokenKind::Word)
            ++i;
        const std::size_t body = Is(i, "(") ? ClosingOf(i) + 1 : m_tokens.size();
        if (Is(body, "{"))
            InsertBehind(m_tokens[body], "$enter();");
    }

    void MarkEval(std::size_t open) {
        const std::size_t closing = ClosingOf(open);
        if (closing >= m_tokens.size() || closing == open + 1)
            return;
        InsertBehind(m_tokens[open], "$script(");
        m_edits.Insert(m_tokens[closing].offset, ")");
    }

    // A name alone may be unknown, and only typeof itself may ask for such a one.
    void MarkTypeof(std::size_t word) {
        const std::size_t first = word + 1, last = LastOfOperand(first);
        if (last >= m_tokens.size())
            return;
        if (last == first) {
            if (m_tokens[first].kind != TokenKind::Word)
                return;
            const std::string name(m_tokens[first].text);
            m_edits.Insert(m_tokens[word].offset, "(");
            InsertBehind(m_tokens[last], "===\"function\"?$typeof(" + name + "):typeof " + name + ")");
            return;
        }
        Replace(m_tokens[word], "$typeof(");
        InsertBehind(m_tokens[last], ")");
    }

    // The end of a name or a bracket with the members and calls that follow it; the count of tokens for other
    // operands.
    std::size_t LastOfOperand(std::size_t first) const {
        std::size_t last = Is(first, "(") ? ClosingOf(first) : first;
        if (last >= m_tokens.size() || (last == first && m_tokens[first].kind != TokenKind::Word) ||
            IsOperatorWord(m_tokens[first].text) || Is(first, "function"))
            return m_tokens.size();
        for (;;) {
            if (Is(last + 1, "."))
                last += 2;
            else if (Is(last + 1, "(") || Is(last + 1, "["))
                last = ClosingOf(last + 1);
            else
                return last;
            if (last >= m_tokens.size())
                return last;
        }
    }

    Rewritten Applied() {
        std::vector<std::size_t> starts;
        Rewritten rewritten{m_edits.Apply(starts), {}, {}};
        PlaceCounter places(m_script);
        auto token = m_tokens.begin();
        for (const std::size_t start : starts) {
            token = std::find_if(token, m_tokens.end(), [&](const Token& t) { return t.offset >= start; });
            const Place line = places.At(start);
            rewritten.lines.push_back({start, line});
            if (token == m_tokens.end())
                continue;
            PlaceCounter ahead = places;
            const Place first = ahead.At(token->offset);
            if (first.line == line.line)
                rewritten.lines.back().place = first;
        }
        const auto conditional = std::ranges::find(m_tokens, TokenKind::Conditional, &Token::kind);
        if (conditional != m_tokens.end())
            rewritten.conditional = PlaceCounter(m_script).At(conditional->offset);
        return rewritten;
    }

    std::string_view m_script;
    const IsGlobalMember& m_isGlobalMember;
    std::vector<Token> m_tokens;
    TextEdits m_edits;
};

} // namespace

Rewritten Rewrite(std::string_view script, const IsGlobalMember& isGlobalMember) {
    return Rewriting(script, isGlobalMember).Run();
}

} // namespace quillon::jscript
