#include "vbscript/machine/ProcedureCompiler.h"

namespace quillon::vbscript {

std::uint16_t ProcedureCompiler::AddLocal(NameId name) {
    if (m_code.locals.size() >= SpaceSize - 1)
        m_write.FailTooLarge();
    const auto place = static_cast<std::uint16_t>(m_code.locals.size());
    m_code.locals.emplace_back(name, place);
    m_locals.insert_or_assign(name, Binding{Binding::Kind::Register, place});
    return place;
}

void ProcedureCompiler::AddFree(NameId name, Binding::Kind kind) {
    const std::uint16_t place = AddLocal(name);
    m_locals[name].kind = kind;
    m_code.freeNames.push_back(
        {place, m_context.globals.PlaceOf(name), name, kind == Binding::Kind::Register, false});
}

// Names that the procedure uses as variables without declaring them get a register each.
void ProcedureCompiler::AddFreeNames(const Scope& scope, bool all) {
    const auto add = [&](NameId name, Binding::Kind kind) {
        if (Find(name).kind == Binding::Kind::Free)
            AddFree(name, kind);
    };
    for (const NameId name : scope.assigned)
        if (!IsGlobalMember(name))
            add(name, Binding::Kind::Register);
    for (FreeName& name : m_code.freeNames)
        name.isDeclared = std::ranges::find(scope.redimmed, name.name) != scope.redimmed.end();
    for (const NameId name : scope.passed)
        if (!IsGlobalMember(name))
            add(name, Binding::Kind::FreeRegister);
    if (all)
        for (const NameId name : scope.mentioned)
            add(name, Binding::Kind::FreeRegister);
}

Binding ProcedureCompiler::Find(NameId name) const {
    if (const auto found = m_locals.find(name); found != m_locals.end())
        return found->second;
    if (m_class != nullptr)
        if (const auto found = m_class->names.find(name); found != m_class->names.end())
            return found->second;
    if (const auto found = m_unit.names.find(name); found != m_unit.names.end())
        if (found->second.kind != Binding::Kind::FreeGlobal || m_code.isModule)
            return found->second;
    const BuiltinNames& builtins = m_context.builtins;
    if (const auto found = builtins.functionsByName.find(name); found != builtins.functionsByName.end())
        return {Binding::Kind::Builtin, found->second};
    if (builtins.constants.contains(name))
        return {Binding::Kind::Constant};
    if (const auto found = builtins.specials.find(name); found != builtins.specials.end())
        return {Binding::Kind::Special, static_cast<std::size_t>(found->second)};
    return {Binding::Kind::Free};
}

bool ProcedureCompiler::IsGlobalMember(NameId name) const {
    const Binding binding = Find(name);
    return (binding.kind == Binding::Kind::Free || IsPerhapsVariable(binding)) &&
           (name == m_context.builtins.err || m_context.members.Find(m_context.names.Utf8(name)).has_value());
}

Operand ProcedureCompiler::OperandOf(const Binding& binding) const noexcept {
    const Space space = binding.kind == Binding::Kind::Global || binding.kind == Binding::Kind::FreeGlobal
                            ? Space::Global
                        : binding.kind == Binding::Kind::Field ? Space::Field
                                                               : Space::Register;
    return MakeOperand(space, binding.place);
}

Operand ProcedureCompiler::GlobalOperand(NameId name) const {
    return MakeOperand(Space::Global, m_context.globals.PlaceOf(name));
}

void ProcedureCompiler::DimArrays(const std::vector<Declaration>& declarations) {
    for (const Declaration& declaration : declarations) {
        if (!declaration.isArray || declaration.isStatement)
            continue;
        const std::size_t mark = m_write.BeginMark(declaration.place);
        m_write.Emit(Op::DimArray, OperandOf(Find(declaration.name)), m_write.ShapeOf(declaration));
        m_write.EndMark(mark);
    }
}

void ProcedureCompiler::CompileBody(const Scope& scope) {
    CompileBlock(scope.body);
    m_write.Bind(m_return);
    m_write.Emit(Op::Return);
}

void ProcedureCompiler::CompileProcedure(const Procedure& procedure) {
    m_code.name = procedure.name;
    m_code.kind = procedure.kind;
    m_code.isExplicit = m_unit.isExplicit;
    m_code.parameterCount = static_cast<std::uint16_t>(procedure.parameters.size());
    for (const Parameter& parameter : procedure.parameters) {
        AddLocal(parameter.name);
        m_code.byValue.push_back(parameter.byValue);
        m_code.valueCount = static_cast<std::uint16_t>(m_code.valueCount + (parameter.byValue ? 1 : 0));
    }
    const bool hasResult =
        procedure.kind == ProcedureKind::Function || procedure.kind == ProcedureKind::PropertyGet;
    if (hasResult && !m_locals.contains(procedure.name))
        m_code.result = AddLocal(procedure.name);
    for (const Declaration& variable : procedure.variables)
        AddLocal(variable.name);
    for (const ConstantDeclaration& constant : procedure.constants)
        m_locals.insert_or_assign(constant.name, Binding{Binding::Kind::Literal, 0, constant.value});
    AddFreeNames(procedure, false);
    m_write.SetFirstTemporary(m_code.locals.size());
    (void)m_write.BeginMark(procedure.place);
    DimArrays(procedure.variables);
    CompileBody(procedure);
}

void ProcedureCompiler::CompileModule(const Program& program, const std::vector<Declaration>& arrays) {
    m_code.isModule = true;
    m_code.isExplicit = m_unit.isExplicit;
    m_write.SetFirstTemporary(0);
    (void)m_write.BeginMark({1, 0});
    DimArrays(arrays);
    CompileBody(program);
}

void ProcedureCompiler::CompileSnippet(const Program& program, bool isExpression) {
    m_code.isSnippet = true;
    m_code.isExplicit = m_unit.isExplicit;
    if (isExpression)
        m_code.result = AddLocal(NoName);
    for (const ConstantDeclaration& constant : program.constants)
        m_locals.insert_or_assign(constant.name, Binding{Binding::Kind::Literal, 0, constant.value});
    if (m_context.localScope) {
        for (const Declaration& variable : program.variables)
            AddFree(variable.name, Binding::Kind::Register);
        AddFreeNames(program, true);
    }
    m_write.SetFirstTemporary(m_code.locals.size());
    (void)m_write.BeginMark({1, 0});
    DimArrays(program.variables);
    CompileBody(program);
}

} // namespace quillon::vbscript
