#include "practice/catalogue/Dependencies.h"

#include "practice/storage/Catalogue.h"
#include "practice/tsql/Lexer.h"
#include "practice/values/SqlError.h"

#include <algorithm>

namespace quillon::practice {

namespace {

using tsql::Symbol;
using tsql::Token;
using tsql::TokenKind;

constexpr std::string_view readers[] = {"FROM", "JOIN", "APPLY", "USING", "EXEC", "EXECUTE", "REFERENCES"};
constexpr std::string_view changers[] = {"INTO", "UPDATE", "DELETE", "MERGE", "TABLE", "INSERT"};
// Words that may stand between a changing word and the name.
constexpr std::string_view fillers[] = {"INTO", "FROM", "TOP", "PERCENT"};

class ReferenceReader {
  public:
    ReferenceReader(std::string_view text, const NameRule& rule)
        : m_text(text)
        , m_rule(rule)
        , m_tokens(tsql::Tokenize(text)) {}

    std::vector<NamedReference> Read() {
        for (m_at = Body(); m_at < m_tokens.size(); ++m_at)
            ReadHere();
        ForgetAliases();
        return std::move(m_found);
    }

  private:
    bool IsName(std::size_t at) const {
        if (at >= m_tokens.size())
            return false;
        const Token& token = m_tokens[at];
        return token.kind == TokenKind::Bracketed || token.kind == TokenKind::DoubleQuoted ||
               (token.kind == TokenKind::Identifier && token.keyword == tsql::Keyword::None);
    }
    bool IsSymbol(std::size_t at, Symbol symbol) const {
        return at < m_tokens.size() && m_tokens[at].symbol == symbol;
    }
    bool IsWord(std::size_t at, std::string_view word) const {
        return at < m_tokens.size() && m_tokens[at].kind == TokenKind::Identifier &&
               SameName(m_text.substr(m_tokens[at].begin, m_tokens[at].end - m_tokens[at].begin), word);
    }
    template <typename Words>
    bool IsOneOf(std::size_t at, const Words& words) const {
        return std::any_of(std::begin(words), std::end(words),
                           [&](std::string_view word) { return IsWord(at, word); });
    }

    // Behind CREATE kind name; a trigger's table is no reference of its body.
    std::size_t Body() const {
        std::size_t at = 0;
        while (at < m_tokens.size() && !IsWord(at, "AS") && !IsWord(at, "BEGIN") && !IsWord(at, "RETURNS"))
            ++at;
        return at;
    }

    void ReadHere() {
        const bool isReader = IsOneOf(m_at, readers);
        const bool isChanger = !isReader && IsOneOf(m_at, changers);
        if (isReader || isChanger) {
            std::size_t next = m_at + 1;
            while (IsOneOf(next, fillers))
                ++next;
            AddName(next, isChanger);
            if (isReader && IsWord(m_at, "FROM"))
                AddList(next);
            return;
        }
        // A function of a user is called by two names at least.
        std::size_t end = m_at;
        const bool isFirst = m_at == 0 || !IsSymbol(m_at - 1, Symbol::Point);
        if (isFirst && IsName(m_at) && NameEnd(m_at, end) > 1 && IsSymbol(end, Symbol::LeftParen))
            AddName(m_at, false);
    }

    // Number of parts of the name at `at`; `end` is behind it.
    int NameEnd(std::size_t at, std::size_t& end) const {
        int parts = 0;
        for (end = at; IsName(end) || (parts > 0 && IsSymbol(end, Symbol::Point)); ++end) {
            ++parts;
            if (IsName(end) && !IsSymbol(end + 1, Symbol::Point))
                return ++end, parts;
            if (IsName(end))
                ++end;
        }
        return parts;
    }

    void AddName(std::size_t at, bool isChanged) {
        std::vector<std::string> parts;
        for (; IsName(at) || (!parts.empty() && IsSymbol(at, Symbol::Point)); ++at) {
            parts.push_back(IsName(at) ? tsql::TokenValue(m_text, m_tokens[at]) : std::string());
            if (IsName(at))
                ++at;
            if (!IsSymbol(at, Symbol::Point))
                break;
        }
        if (parts.empty() || parts.size() > 3 || parts.back().empty() || parts.back().front() == '#')
            return;
        parts.insert(parts.begin(), 3 - parts.size(), std::string());
        if (IsWord(at, "AS"))
            ++at;
        if (IsName(at) && !m_rule.Same(tsql::TokenValue(m_text, m_tokens[at]), parts.back()))
            m_aliases.push_back(tsql::TokenValue(m_text, m_tokens[at]));
        const auto known = std::find_if(m_found.begin(), m_found.end(), [&](const NamedReference& reference) {
            return m_rule.Same(reference.name, parts[2]) && m_rule.Same(reference.schema, parts[1]) &&
                   SameName(reference.database, parts[0]);
        });
        if (known != m_found.end())
            known->isChanged = known->isChanged || isChanged;
        else
            m_found.push_back({parts[0], parts[1], parts[2], isChanged});
    }

    // UPDATE o SET ... FROM Orders o: what changes is no object of its own.
    void ForgetAliases() {
        std::erase_if(m_found, [&](const NamedReference& reference) {
            return reference.schema.empty() &&
                   std::any_of(m_aliases.begin(), m_aliases.end(),
                               [&](const std::string& alias) { return m_rule.Same(alias, reference.name); });
        });
    }

    // FROM a, b AS c, d: the names behind commas.
    void AddList(std::size_t at) {
        std::size_t end = at;
        while (NameEnd(at, end) > 0) {
            if (IsWord(end, "AS"))
                ++end;
            if (IsName(end))
                ++end;
            if (!IsSymbol(end, Symbol::Comma))
                return;
            at = end + 1;
            AddName(at, false);
        }
    }

    std::string_view m_text;
    NameRule m_rule;
    std::vector<Token> m_tokens;
    std::vector<NamedReference> m_found;
    std::vector<std::string> m_aliases;
    std::size_t m_at = 0;
};

} // namespace

std::vector<NamedReference> NamedReferences(std::string_view definition, const NameRule& rule) {
    try {
        return ReferenceReader(definition, rule).Read();
    } catch (const SqlError&) {
        return {};
    }
}

} // namespace quillon::practice
