// Reads statements and blocks of them.
#pragma once

#include <unordered_set>
#include <utility>

#include "vbscript/source/ExpressionParser.h"

namespace quillon::vbscript {

class StatementParser : protected ExpressionParser {
  protected:
    using ExpressionParser::ExpressionParser;

    // What may end a block; the word itself stays.
    enum class BlockEnd { Text, Procedure, If, Case, Loop, Next, Wend, With };

    // The word behind End, and behind Exit.
    static Keyword EndWordOf(ProcedureKind kind) noexcept;

    Block ParseBlock(BlockEnd end);
    // Ends of lines, and the rest of the line behind a statement.
    void SkipSeparators();
    void EndStatement();

    // --- declarations that stand among statements (DeclarationParser.cpp) ---
    void ParseDim(std::vector<Declaration>& into, bool isPublic);
    void ParseConst();
    const LiteralExpression* ParseConstantValue();
    void Declare(NameId name, Place place); // raises 1041 for a second declaration in the scope
    // Declarations outside procedures: procedures, Public, Private, and classes where `isTopLevel`, not
    // within a block; false if none is here.
    virtual bool ParseModuleItem(bool isTopLevel) = 0;

    ~StatementParser() = default;

    int m_doDepth = 0;
    int m_forDepth = 0;
    std::unordered_set<NameId> m_declared; // in the scope, for 1041
    bool m_inProcedure = false;
    bool m_inClass = false;
    ProcedureKind m_procedureKind = ProcedureKind::Sub;
    bool m_singleLine = false;

  private:
    bool AtBlockEnd(BlockEnd end) const;
    Statement* ParseStatement();
    Statement* ParseKeywordStatement();
    Statement* ParseNameStatement();
    Statement* FinishCall(Expression* callee, std::span<Expression* const> arguments, Place place);
    Statement* FinishAssign(Expression* target, bool isSet, Place place);
    Statement* ParseDimStatement();
    Statement* ParseCall();
    Statement* ParseSet();
    Statement* ParseReDim();
    Statement* ParseErase();
    Statement* ParseIf();
    Statement* ParseSingleLineIf(IfStatement node);
    Block ParseLine();
    Statement* ParseSelect();
    Statement* ParseFor();
    Statement* ParseForEach(Place place);
    NameId ParseForVariable();
    Statement* ParseDo();
    Statement* ParseWhile();
    Statement* ParseWith();
    Statement* ParseExit();
    Statement* ParseOnError();
    template <class Node>
    Node Begin(StatementKind kind) const {
        Node node{};
        node.kind = kind;
        node.place = Now().place;
        return node;
    }
};

} // namespace quillon::vbscript
