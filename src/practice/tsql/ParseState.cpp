#include "practice/tsql/ParseState.h"

namespace quillon::practice::tsql {

namespace {

constexpr int kDeepestNesting = 250;
constexpr int kHighestTree = 3000;
constexpr std::size_t kMostNotes = 50;

bool Opens(const Token& token) {
    return token.symbol == Symbol::LeftParen;
}

} // namespace

ParseState::ParseState(std::string_view source, const ParseOptions& options)
    : quotedIdentifiers(options.quotedIdentifiers)
    , m_source(source)
    , m_tokens(Tokenize(source))
    , m_matches(m_tokens.size(), 0) {
    std::vector<std::uint32_t> open;
    for (std::uint32_t i = 0; i < m_tokens.size(); ++i) {
        if (Opens(m_tokens[i])) {
            open.push_back(i);
        } else if (m_tokens[i].symbol == Symbol::RightParen && !open.empty()) {
            m_matches[open.back()] = i;
            open.pop_back();
        }
    }
    for (const std::string& variable : options.variables)
        m_variables[UpperWord(variable)] = VariableKind::Unknown;
}

const Token& ParseState::Peek(std::size_t ahead) const {
    return m_tokens[std::min(m_next + ahead, m_tokens.size() - 1)];
}

Token ParseState::Take() {
    const Token token = Peek();
    if (m_next + 1 < m_tokens.size())
        ++m_next;
    return token;
}

std::size_t ParseState::LastTextEnd() const {
    std::size_t last = m_next;
    while (last > 1 && m_tokens[last - 1].symbol == Symbol::Semicolon)
        --last;
    return last == 0 ? 0 : m_tokens[last - 1].end;
}

bool ParseState::Is(std::string_view word, std::size_t ahead) const {
    const Token& token = Peek(ahead);
    return token.kind == TokenKind::Identifier && token.end - token.begin == word.size() &&
           SameWord(m_source.substr(token.begin, word.size()), word);
}

bool ParseState::IsName(std::size_t ahead) const {
    const Token& token = Peek(ahead);
    return (token.kind == TokenKind::Identifier && token.keyword == Keyword::None) ||
           token.kind == TokenKind::Bracketed || (token.kind == TokenKind::DoubleQuoted && quotedIdentifiers);
}

bool ParseState::IsString(std::size_t ahead) const {
    const TokenKind kind = Peek(ahead).kind;
    return kind == TokenKind::String || kind == TokenKind::NString ||
           (kind == TokenKind::DoubleQuoted && !quotedIdentifiers);
}

std::size_t ParseState::Match(std::size_t index) const {
    return m_matches[index];
}

bool ParseState::IsQueryBracket(std::size_t ahead) const {
    const std::size_t outer = m_next + ahead;
    std::size_t inner = outer;
    while (inner < m_tokens.size() && Opens(m_tokens[inner]) && inner - outer <= kDeepestNesting)
        ++inner;
    if (inner == outer || inner >= m_tokens.size() || m_tokens[inner].keyword != Keyword::Select)
        return false;
    // Every bracket inside the outer one must be a whole operand of a set operation, or all there is.
    for (std::size_t bracket = inner - 1; bracket > outer; --bracket) {
        const std::size_t close = Match(bracket);
        if (close == 0)
            return false;
        const Token& after = m_tokens[close + 1];
        if (after.symbol != Symbol::RightParen && after.keyword != Keyword::Union &&
            after.keyword != Keyword::Except && after.keyword != Keyword::Intersect &&
            after.keyword != Keyword::Order)
            return false;
    }
    return true;
}

void ParseState::FailHere() const {
    FailNear(Peek());
}

void ParseState::FailNear(const Token& token) const {
    const bool atEnd = token.kind == TokenKind::End;
    const Token& near = atEnd && m_next > 0 ? m_tokens[m_next - 1] : token;
    const std::string text = Value(near);
    if (token.keyword == Keyword::With)
        Fail(319, {}, near.At());
    Fail(!atEnd && token.keyword != Keyword::None ? 156 : 102, {text}, near.At());
}

void ParseState::Fail(int number, std::initializer_list<std::string_view> parameters, Position at) const {
    SqlError error(number, parameters);
    error.line = at.line;
    throw error;
}

void ParseState::Refuse(std::string_view feature, Position at) const {
    SqlError error = SqlError::NotSupported(feature);
    error.line = at.line;
    throw error;
}

void ParseState::Note(int number, std::initializer_list<std::string_view> parameters, Position at) {
    if (m_notes.size() >= kMostNotes)
        return;
    SqlError error(number, parameters);
    error.line = at.line;
    m_notes.push_back(std::move(error));
}

void ParseState::Declare(const std::string& variable, VariableKind kind, Position at) {
    if (!m_variables.emplace(UpperWord(variable), kind).second)
        Note(134, {variable}, at);
}

void ParseState::RequireScalar(const std::string& variable, Position at) {
    const auto found = m_variables.find(UpperWord(variable));
    if (found == m_variables.end() || found->second == VariableKind::Table)
        Note(137, {variable}, at);
}

void ParseState::RequireTable(const std::string& variable, Position at) {
    const auto found = m_variables.find(UpperWord(variable));
    if (found == m_variables.end() || found->second == VariableKind::Scalar ||
        found->second == VariableKind::Cursor)
        Note(1087, {variable}, at);
}

bool ParseState::IsCursorVariable(const std::string& variable) const {
    const auto found = m_variables.find(UpperWord(variable));
    return found != m_variables.end() && found->second == VariableKind::Cursor;
}

ParseState::Place ParseState::Here() const {
    return {At(),       m_next, m_notes.size(), quotedIdentifiers, module,
            statements, blocks, loops,          columnsRefused};
}

void ParseState::GoBack(const Place& place) {
    m_next = place.next;
    m_notes.erase(m_notes.begin() + static_cast<std::ptrdiff_t>(place.notes), m_notes.end());
    quotedIdentifiers = place.quotedIdentifiers;
    module = place.module;
    statements = place.statements;
    blocks = place.blocks;
    loops = place.loops;
    columnsRefused = place.columnsRefused;
}

void ParseState::Enter() {
    if (m_depth >= kDeepestNesting)
        Fail(191, {}, At());
    ++m_depth;
}

void ParseState::NoteHeight(int height) {
    if (height > kHighestTree)
        Fail(191, {}, At());
    m_peak = std::max(m_peak, height);
}

} // namespace quillon::practice::tsql
