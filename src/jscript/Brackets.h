// Follows the brackets of a script, token by token: which braces hold statements, where a statement begins,
// and whether an operand or an operator comes next. That is what tells a regular expression from a division.
#pragma once

#include <string_view>
#include <vector>

#include "jscript/Token.h"

namespace quillon::jscript {

// Words behind which an operand begins, although words are values otherwise.
bool IsOperatorWord(std::string_view word);

class Brackets {
  public:
    // The token that was read next; its startsStatement is filled in.
    void Take(Token& token);

    // Whether what comes next begins an operand.
    bool OperandComes() const noexcept { return m_statementComes || !m_valueEnded; }

  private:
    enum class Kind { Group, Control, Head, Statements, Body, Properties };
    struct Bracket {
        Kind kind;
        bool isDeclaration = false; // of a function's head and body
        int questions = 0;          // that wait for their colon
    };

    void TakeWord(const Token& token);
    void TakeMark(const Token& token);
    void Open(Kind kind);
    void OpenBrace(bool holdsStatements);
    void Close();
    void TakeColon();
    bool HoldsStatements() const noexcept;
    Bracket& Innermost() noexcept { return m_open.back(); }

    std::vector<Bracket> m_open{{Kind::Statements}};
    Bracket m_closed{Kind::Group}; // the last one, if the last token closed it
    std::string_view m_last, m_beforeLast;
    const char* m_lastEnd = nullptr;
    bool m_lastIsWord = false;
    bool m_statementComes = true;
    bool m_valueEnded = false;
    bool m_steppedValue = false; // whether a value ended before the last mark
    bool m_functionIsDeclaration = false;
};

} // namespace quillon::jscript
