// Reads what declares: Dim and Const, procedures, classes and their members.
#pragma once

#include "vbscript/source/StatementParser.h"

namespace quillon::vbscript {

class DeclarationParser : protected StatementParser {
  protected:
    DeclarationParser(const TokenList& tokens, Program& program, Names& names)
        : StatementParser(tokens, program)
        , m_initialize(names.InternAscii("Class_Initialize"))
        , m_terminate(names.InternAscii("Class_Terminate")) {}
    ~DeclarationParser() = default;

    bool ParseModuleItem(bool isTopLevel) final;

  private:
    struct Modifiers {
        bool given = false;
        bool isPublic = true;
        bool isDefault = false;
        Place place;
    };
    Modifiers ParseModifiers();
    bool IsProcedureStart() const noexcept {
        return Is(Keyword::Sub) || Is(Keyword::Function) || IsPropertyStart();
    }
    bool IsPropertyStart() const noexcept;

    Procedure ParseProcedure(const Modifiers& modifiers, bool inClass);
    void ParseProcedureHead(Procedure& procedure);
    void ParseParameters(Procedure& procedure);
    void ParseProcedureBody(Procedure& procedure);
    void ParseClass();
    void ParseClassMember(ClassDeclaration& declaration);
    static void CheckField(const ClassDeclaration& declaration);
    void CheckMember(const ClassDeclaration& declaration, const Procedure& member) const;

    NameId m_initialize;
    NameId m_terminate;
};

} // namespace quillon::vbscript
