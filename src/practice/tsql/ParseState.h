// What the parsing functions of this room share: the tokens and the place among them, the faults found so
// far, the variables that are declared, and the bounds that keep a hostile text from exhausting the stack.
//
// Each family of the grammar has its own file of functions over this state (ParseExpressions.h and so on).
// They take the tokens they recognise and throw at the first one they do not.
#pragma once

#include "practice/tsql/Lexer.h"
#include "practice/tsql/Parser.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace quillon::practice::tsql {

enum class ModuleKind { None, View, Procedure, Function, TableFunction, Trigger };

enum class VariableKind { Scalar, Table, Cursor, Unknown };

class ParseState {
  public:
    ParseState(std::string_view source, const ParseOptions& options);

    // The tokens ahead
    const Token& Peek(std::size_t ahead = 0) const;
    Token Take();
    Position At() const { return Peek().At(); }
    std::size_t LastEnd() const { return m_next == 0 ? 0 : m_tokens[m_next - 1].end; }
    /// The end of what was taken, without the semicolons that close it.
    std::size_t LastTextEnd() const;
    bool AtStart() const { return m_next == 0; }
    std::size_t Index() const { return m_next; }
    std::string Value(const Token& token) const { return TokenValue(m_source, token); }
    std::string_view Source() const { return m_source; }

    bool Is(Keyword keyword, std::size_t ahead = 0) const { return Peek(ahead).keyword == keyword; }
    bool Is(Symbol symbol, std::size_t ahead = 0) const { return Peek(ahead).symbol == symbol; }
    bool Is(TokenKind kind, std::size_t ahead = 0) const { return Peek(ahead).kind == kind; }
    /// A word without brackets, reserved or not; `word` in upper case.
    bool Is(std::string_view word, std::size_t ahead = 0) const;
    bool IsName(std::size_t ahead = 0) const;
    bool IsString(std::size_t ahead = 0) const;

    template <class Wanted>
    bool Accept(Wanted wanted) {
        if (!Is(wanted))
            return false;
        Take();
        return true;
    }
    template <class Wanted>
    void Expect(Wanted wanted) {
        if (!Accept(wanted))
            FailHere();
    }

    /// Whether the bracket at `ahead` encloses a query, which may stand in brackets itself.
    bool IsQueryBracket(std::size_t ahead = 0) const;

    // Faults
    [[noreturn]] void FailHere() const; // the next token cannot stand there: 102, 156, 319
    [[noreturn]] void FailNear(const Token& token) const;
    [[noreturn]] void Fail(int number, std::initializer_list<std::string_view> parameters, Position at) const;
    [[noreturn]] void Refuse(std::string_view feature, Position at) const;
    /// Keeps a fault that does not stop the parsing.
    void Note(int number, std::initializer_list<std::string_view> parameters, Position at);
    const std::vector<SqlError>& Notes() const { return m_notes; }

    // Variables
    void Declare(const std::string& variable, VariableKind kind, Position at); // 134
    void RequireScalar(const std::string& variable, Position at);              // 137
    void RequireTable(const std::string& variable, Position at);               // 1087
    bool IsCursorVariable(const std::string& variable) const;

    // Where the parsing is
    struct Place;
    Place Here() const;
    /// Forgets what was taken and noted since, but not the variables that were declared.
    void GoBack(const Place& place);
    bool quotedIdentifiers = true;
    bool terminated = true; // the statement before ended with a semicolon, or there was none
    ModuleKind module = ModuleKind::None;
    int statements = 0; // taken so far
    int blocks = 0;     // open around the next statement
    int loops = 0;
    bool columnsRefused = false; // in PRINT and VALUES a bare name is fault 128

    // Bounds
    void Enter();
    void Leave() { --m_depth; }
    void NoteHeight(int height);
    int ExchangePeak(int peak) { return std::exchange(m_peak, peak); }
    int Peak() const { return m_peak; }

  private:
    std::size_t Match(std::size_t index) const;

    std::string_view m_source;
    std::vector<Token> m_tokens;
    std::vector<std::uint32_t> m_matches; // for an opening bracket, the index of its closing one
    std::size_t m_next = 0;
    std::vector<SqlError> m_notes;
    std::unordered_map<std::string, VariableKind> m_variables; // by upper case name
    int m_depth = 0;
    int m_peak = 0;
};

struct ParseState::Place {
    Position at;
    std::size_t next = 0;
    std::size_t notes = 0;
    bool quotedIdentifiers = true;
    ModuleKind module = ModuleKind::None;
    int statements = 0;
    int blocks = 0;
    int loops = 0;
    bool columnsRefused = false;
};

/// One level deeper into nested constructs, for as long as it lives. Throws 191 where the text nests too
/// deeply.
class Nested {
  public:
    explicit Nested(ParseState& state)
        : m_state(state) {
        m_state.Enter();
    }
    ~Nested() { m_state.Leave(); }
    Nested(const Nested&) = delete;
    Nested& operator=(const Nested&) = delete;

  private:
    ParseState& m_state;
};

/// Measures the height of all that is parsed while it lives.
class HeightScope {
  public:
    explicit HeightScope(ParseState& state)
        : m_state(state)
        , m_outer(state.ExchangePeak(0)) {}
    ~HeightScope() { m_state.ExchangePeak(std::max(m_outer, m_state.Peak())); }
    HeightScope(const HeightScope&) = delete;
    HeightScope& operator=(const HeightScope&) = delete;
    /// The height of a node over all that was parsed since.
    int Above() const {
        const int height = m_state.Peak() + 1;
        m_state.NoteHeight(height);
        return height;
    }

  private:
    ParseState& m_state;
    int m_outer;
};

} // namespace quillon::practice::tsql
