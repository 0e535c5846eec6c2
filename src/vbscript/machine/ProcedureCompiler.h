// Compiles the body of a procedure, or of a program; inner part of Compiler.
#pragma once

#include <unordered_map>
#include <unordered_set>

#include "vbscript/machine/CodeWriter.h"
#include "vbscript/machine/Compiler.h"

namespace quillon::vbscript {

// What a name stands for, as far as the text tells.
struct Binding {
    enum class Kind {
        Register,
        Global,
        Field,
        Literal,      // a constant of the text
        Constant,     // a constant of the language
        Procedure,    // of the text
        Class,        // of the text
        SelfMember,   // a method or property of the class around
        FreeRegister, // bound when the procedure starts; a variable, or what a global name stands for
        FreeGlobal,   // likewise at the top of a module
        Free,         // a global name that the text does not declare
        Builtin,
        Special,
    };
    Kind kind;
    std::size_t place = 0;
    const LiteralExpression* literal = nullptr;
};

// The names that a text declares at its top.
struct UnitNames {
    std::unordered_map<NameId, Binding> names;
    bool isExplicit = false;
};

// The names that the class around declares.
struct ClassNames {
    std::unordered_map<NameId, Binding> names;
};

class ProcedureCompiler {
  public:
    ProcedureCompiler(Code& code, const CompileContext& context, const UnitNames& unit,
                      const ClassNames* around)
        : m_code(code)
        , m_write(code)
        , m_context(context)
        , m_unit(unit)
        , m_class(around) {}

    void CompileProcedure(const Procedure& procedure);
    void CompileModule(const Program& program, const std::vector<Declaration>& arrays);
    void CompileSnippet(const Program& program, bool isExpression);

  private:
    using Label = CodeWriter::Label;
    using Argument = Expression* const;

    // --- names (ProcedureCompiler.cpp) ---
    std::uint16_t AddLocal(NameId name);
    void AddFree(NameId name, Binding::Kind kind);
    void AddFreeNames(const Scope& scope, bool all);
    Binding Find(NameId name) const;
    bool IsVariable(const Binding& binding) const noexcept { return binding.kind <= Binding::Kind::Field; }
    static bool IsPerhapsVariable(const Binding& binding) noexcept {
        return binding.kind == Binding::Kind::FreeRegister || binding.kind == Binding::Kind::FreeGlobal;
    }
    Operand OperandOf(const Binding& binding) const noexcept;
    Operand GlobalOperand(NameId name) const;
    // Not declared by the text, and Err or a member of one of the host's objects.
    bool IsGlobalMember(NameId name) const;
    void CompileBody(const Scope& scope);
    void DimArrays(const std::vector<Declaration>& declarations);

    // --- expressions (CompileExpressions.cpp) ---
    // The value, in `want` if it is an operator's result and `want` was given, in a variable or constant, or
    // in the first free register, which is then taken.
    static constexpr int Anywhere = -1;
    Operand Value(const Expression& expression, int want = Anywhere);
    void ValueInto(const Expression& expression, std::uint16_t place);
    Operand NameValue(const NameExpression& name);
    Operand UnaryValue(const UnaryExpression& unary, int want);
    Operand BinaryValue(const BinaryExpression& binary, int want);
    Operand JoinValue(const BinaryExpression& binary, int want);
    bool RunsCode(const Expression& expression) const;
    Operand Protected(Operand operand, bool hasCalls, std::uint16_t place);
    Operand Target(int want, std::uint16_t place);
    void JumpUnless(const Expression& condition, Label& label);
    void JumpOn(const Expression& condition, Op op, Label& label);

    // --- calls (CompileCalls.cpp) ---
    Operand CallValue(const CallExpression& call);
    Operand MemberValue(const MemberExpression& member, std::span<Argument> arguments);
    Operand NamedCall(const NameExpression& name, std::span<Argument> arguments, bool isStatement);
    Operand OwnCall(const NameExpression& name, std::span<Argument> arguments, bool isStatement);
    Operand DynamicCall(Operand callee, NameId name, std::span<Argument> arguments, bool isStatement);
    Operand LoadName(Operand named, NameId name, CallSite::Use use);
    Operand IndexValue(Operand array, std::span<Argument> arguments, std::uint16_t place);
    Operand SpecialCall(BuiltinNames::Special special, std::span<Argument> arguments);
    Operand NewValue(const NewExpression& created);
    Operand ObjectOf(const MemberExpression& member);
    // Arguments into registers one behind the other; those that are variables by reference. Gives the base.
    std::uint16_t Arguments(std::span<Argument> arguments, bool byReference);
    void ArgumentInto(const Expression* argument, std::uint16_t place, bool byReference, std::uint16_t& lock);
    bool IsElement(const Expression* argument) const;
    void ReferElement(Operand array, std::span<Argument> subscripts, std::uint16_t place, std::uint16_t lock);
    Operand FinishCall(std::uint16_t base, std::uint16_t place);

    // --- statements (CompileStatements.cpp, CompileLoops.cpp) ---
    void CompileBlock(Block block);
    void CompileLoopBody(Block body, ExitKind kind, Label& exit);
    void CompileCaseTest(Operand subject, const SelectCase& test, Label& next);
    void CompileStatement(const Statement& statement);
    void CompileAssign(const AssignStatement& assign);
    void AssignName(const NameExpression& target, const Expression& value, bool isSet);
    void AssignMember(const MemberExpression& target, std::span<Argument> arguments, const Expression& value,
                      bool isSet, CallSite::Use use = CallSite::Use::Plain);
    void AssignElement(const CallExpression& target, const Expression& value, bool isSet);
    Operand ElementPlace(const Expression& target);
    void StoreElement(Operand array, std::span<Argument> subscripts, const Expression& value, bool isSet);
    void CompileCall(const CallStatement& call);
    void CompileDim(const DimStatement& dim);
    void CompileReDim(const ReDimStatement& redim);
    void CompileErase(const EraseStatement& erase);
    void CompileIf(const IfStatement& branches);
    void CompileSelect(const SelectStatement& select);
    void CompileFor(const ForStatement& loop);
    void CompileForEach(const ForEachStatement& loop);
    void CompileDo(const DoStatement& loop);
    void EmitLoopEnd(std::uint16_t first);
    void CompileWith(const WithStatement& with);
    void CompileExit(const ExitStatement& exit);
    Operand VariableOperand(NameId name);
    void AssignGlobalMember(NameId name, std::span<Argument> arguments, const Expression& value, bool isSet);
    std::uint16_t NewValueWith(std::span<Argument> arguments, const Expression& value);
    void RaiseHere(std::int32_t number);

    // A loop around the statement; leaving it lets go of the registers from `registers` on.
    struct Loop {
        ExitKind kind;
        Label* exit;
    };

    Code& m_code;
    CodeWriter m_write;
    const CompileContext& m_context;
    const UnitNames& m_unit;
    const ClassNames* m_class;
    std::unordered_map<NameId, Binding> m_locals;
    std::vector<Loop> m_loops;
    std::vector<std::uint16_t> m_withs;
    Label m_return;
};

} // namespace quillon::vbscript
