// Simple statements: assignments, calls, arrays.

#include "platform/FailureNumbers.h"
#include "vbscript/machine/ProcedureCompiler.h"

namespace quillon::vbscript {

void ProcedureCompiler::CompileBlock(Block block) {
    for (const Statement* statement : block) {
        const std::uint16_t place = m_write.NextRegister();
        CompileStatement(*statement);
        m_write.ReleaseTo(place);
    }
}

void ProcedureCompiler::CompileStatement(const Statement& statement) {
    switch (statement.kind) {
    case StatementKind::If: CompileIf(static_cast<const IfStatement&>(statement)); return;
    case StatementKind::Select: CompileSelect(static_cast<const SelectStatement&>(statement)); return;
    case StatementKind::For: CompileFor(static_cast<const ForStatement&>(statement)); return;
    case StatementKind::ForEach: CompileForEach(static_cast<const ForEachStatement&>(statement)); return;
    case StatementKind::Do: CompileDo(static_cast<const DoStatement&>(statement)); return;
    case StatementKind::With: CompileWith(static_cast<const WithStatement&>(statement)); return;
    default: break;
    }
    const std::size_t mark = m_write.BeginMark(statement.place);
    switch (statement.kind) {
    case StatementKind::Assign: CompileAssign(static_cast<const AssignStatement&>(statement)); break;
    case StatementKind::Call: CompileCall(static_cast<const CallStatement&>(statement)); break;
    case StatementKind::Dim: CompileDim(static_cast<const DimStatement&>(statement)); break;
    case StatementKind::ReDim: CompileReDim(static_cast<const ReDimStatement&>(statement)); break;
    case StatementKind::Erase: CompileErase(static_cast<const EraseStatement&>(statement)); break;
    case StatementKind::Exit: CompileExit(static_cast<const ExitStatement&>(statement)); break;
    case StatementKind::OnError:
        m_write.Emit(static_cast<const OnErrorStatement&>(statement).resumeNext ? Op::OnErrorResume
                                                                                : Op::OnErrorStop);
        break;
    default: break; // Stop does nothing without a debugger
    }
    m_write.EndMark(mark);
}

void ProcedureCompiler::RaiseHere(std::int32_t number) {
    m_write.Emit(Op::Raise);
    m_write.EmitWord(static_cast<std::uint32_t>(number));
}

void ProcedureCompiler::CompileAssign(const AssignStatement& assign) {
    if (assign.target == nullptr) { // what Eval gives
        const Operand value = Value(*assign.value);
        m_write.Emit(Op::Copy, static_cast<unsigned>(m_code.result), value);
        return;
    }
    switch (assign.target->kind) {
    case ExpressionKind::Name:
        AssignName(static_cast<const NameExpression&>(*assign.target), *assign.value, assign.isSet);
        break;
    case ExpressionKind::Member:
        AssignMember(static_cast<const MemberExpression&>(*assign.target), {}, *assign.value, assign.isSet);
        break;
    case ExpressionKind::Call:
        AssignElement(static_cast<const CallExpression&>(*assign.target), *assign.value, assign.isSet);
        break;
    default: throw CompileFailure(numbers::SyntaxError, assign.place);
    }
}

// The variable that a statement writes to; for what cannot be written to, a register after a failure. A
// member of the host's is none that could count, or hold an array.
Operand ProcedureCompiler::VariableOperand(NameId name) {
    const Binding binding = Find(name);
    const bool isMember = IsGlobalMember(name) && m_context.globals[m_context.globals.PlaceOf(name)].kind() ==
                                                      Kind::Unset; // no variable hides it
    if (!isMember && (IsVariable(binding) || IsPerhapsVariable(binding)))
        return OperandOf(binding);
    if (!isMember && binding.kind == Binding::Kind::Free && name != m_context.builtins.err)
        return GlobalOperand(name);
    RaiseHere(numbers::IllegalAssignment);
    return m_write.TakeRegister();
}

void ProcedureCompiler::AssignName(const NameExpression& target, const Expression& value, bool isSet) {
    if (Find(target.name).kind == Binding::Kind::SelfMember) {
        const std::uint16_t me = m_write.TakeRegister();
        m_write.Emit(Op::LoadMe, me);
        m_write.MayHoldObject(me);
        const std::uint16_t base = m_write.NextRegister();
        ValueInto(value, base);
        m_write.Emit(isSet ? Op::SetMember : Op::LetMember, base, me,
                     m_write.SiteOf(target.name, 1, CallSite::Use::Self));
        return;
    }
    if (IsGlobalMember(target.name)) {
        AssignGlobalMember(target.name, {}, value, isSet);
        return;
    }
    const Operand variable = VariableOperand(target.name);
    const bool isOperator = value.kind == ExpressionKind::Unary || value.kind == ExpressionKind::Binary;
    if (isOperator && !isSet) {
        (void)Value(value, variable);
        return;
    }
    const Operand source = Value(value);
    const bool moves = m_write.IsTemporary(source);
    m_write.Emit(isSet ? (moves ? Op::SetTake : Op::Set) : (moves ? Op::LetTake : Op::Let), variable, source);
    if (moves)
        m_write.ForgetObjectIn(source);
}

void ProcedureCompiler::AssignMember(const MemberExpression& target, std::span<Argument> arguments,
                                     const Expression& value, bool isSet, CallSite::Use use) {
    const Operand object = ObjectOf(target);
    const std::uint16_t base = NewValueWith(arguments, value);
    m_write.Emit(isSet ? Op::SetMember : Op::LetMember, base, object,
                 m_write.SiteOf(target.name, arguments.size() + 1, use));
}

// The arguments of an assignment and behind them the new value, in registers one behind the other.
std::uint16_t ProcedureCompiler::NewValueWith(std::span<Argument> arguments, const Expression& value) {
    const std::uint16_t base = m_write.NextRegister();
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const auto place = static_cast<std::uint16_t>(base + i);
        std::uint16_t lock = 0;
        ArgumentInto(arguments[i], place, false, lock);
        m_write.ReleaseTo(place);
        (void)m_write.TakeRegister();
    }
    ValueInto(value, static_cast<std::uint16_t>(base + arguments.size()));
    for (std::size_t i = 0; i <= arguments.size(); ++i)
        m_write.MayHoldObject(static_cast<std::uint16_t>(base + i));
    return base;
}

void ProcedureCompiler::AssignGlobalMember(NameId name, std::span<Argument> arguments,
                                           const Expression& value, bool isSet) {
    const Binding binding = Find(name);
    const Operand named = IsPerhapsVariable(binding) ? OperandOf(binding) : GlobalOperand(name);
    const std::uint16_t base = NewValueWith(arguments, value);
    m_write.Emit(isSet ? Op::SetName : Op::LetName, base, named, m_write.SiteOf(name, arguments.size() + 1));
}

void ProcedureCompiler::AssignElement(const CallExpression& target, const Expression& value, bool isSet) {
    if (target.callee->kind == ExpressionKind::Member) {
        AssignMember(static_cast<const MemberExpression&>(*target.callee), target.arguments, value, isSet);
        return;
    }
    if (target.callee->kind == ExpressionKind::Name) {
        const NameId name = static_cast<const NameExpression*>(target.callee)->name;
        if (Find(name).kind == Binding::Kind::SelfMember) {
            Expression me{};
            me.kind = ExpressionKind::Me;
            me.place = target.place;
            MemberExpression member{};
            member.kind = ExpressionKind::Member;
            member.place = target.place;
            member.object = &me;
            member.name = name;
            AssignMember(member, target.arguments, value, isSet, CallSite::Use::Self);
            return;
        }
        if (IsGlobalMember(name))
            AssignGlobalMember(name, target.arguments, value, isSet);
        else
            StoreElement(VariableOperand(name), target.arguments, value, isSet);
        return;
    }
    StoreElement(ElementPlace(*target.callee), target.arguments, value, isSet);
}

// In `a(1)(2) = v` the inner element is written to where it lies.
Operand ProcedureCompiler::ElementPlace(const Expression& target) {
    if (target.kind == ExpressionKind::Name &&
        IsVariable(Find(static_cast<const NameExpression&>(target).name)))
        return OperandOf(Find(static_cast<const NameExpression&>(target).name));
    if (target.kind != ExpressionKind::Call)
        return Value(target);
    const auto& call = static_cast<const CallExpression&>(target);
    const bool isName = call.callee->kind == ExpressionKind::Name;
    if (!isName && call.callee->kind != ExpressionKind::Call)
        return Value(target);
    if (isName && !IsElement(&target))
        return Value(target);
    const Operand array = ElementPlace(*call.callee);
    const std::uint16_t lock = m_write.TakeRegister();
    const std::uint16_t place = m_write.TakeRegister();
    ReferElement(array, call.arguments, place, lock);
    m_write.ReleaseTo(static_cast<std::uint16_t>(place + 1));
    return place;
}

void ProcedureCompiler::StoreElement(Operand array, std::span<Argument> subscripts, const Expression& value,
                                     bool isSet) {
    if (subscripts.size() == 1 && subscripts.front() != nullptr) {
        const std::uint16_t place = m_write.NextRegister();
        const Operand subscript = Protected(Value(*subscripts.front()), RunsCode(value), place);
        const Operand stored = Value(value);
        m_write.Emit(isSet ? Op::SetIndex : Op::StoreIndex, array, subscript, stored);
        return;
    }
    const std::uint16_t base = NewValueWith(subscripts, value);
    m_write.Emit(isSet ? Op::SetMany : Op::StoreMany, array, base, static_cast<unsigned>(subscripts.size()));
}

void ProcedureCompiler::CompileCall(const CallStatement& call) {
    if (call.callee->kind == ExpressionKind::Name) {
        (void)NamedCall(static_cast<const NameExpression&>(*call.callee), call.arguments, true);
    } else if (call.callee->kind == ExpressionKind::Member) {
        const auto& member = static_cast<const MemberExpression&>(*call.callee);
        const Operand object = ObjectOf(member);
        const std::uint16_t base = Arguments(call.arguments, true);
        m_write.Emit(Op::CallMember, base, object, m_write.SiteOf(member.name, call.arguments.size()));
        m_write.MayHoldObject(base);
    } else {
        const Operand callee = Value(*call.callee);
        (void)DynamicCall(callee, NoName, call.arguments, true);
    }
}

void ProcedureCompiler::CompileDim(const DimStatement& dim) {
    for (const Declaration& array : dim.arrays)
        m_write.Emit(Op::DimArray, OperandOf(Find(array.name)), m_write.ShapeOf(array));
}

void ProcedureCompiler::CompileReDim(const ReDimStatement& redim) {
    for (const ReDimItem& item : redim.items) {
        const Operand array = VariableOperand(item.name);
        const std::uint16_t base = Arguments(item.bounds, false);
        m_write.Emit(redim.preserve ? Op::ReDimPreserve : Op::ReDim, array, base,
                     static_cast<unsigned>(item.bounds.size()));
        m_write.ReleaseTo(base);
    }
}

void ProcedureCompiler::CompileErase(const EraseStatement& erase) {
    for (const NameId name : erase.names)
        m_write.Emit(Op::Erase, VariableOperand(name));
}

void ProcedureCompiler::CompileExit(const ExitStatement& exit) {
    if (exit.exit == ExitKind::Procedure) {
        m_write.EmitJump(Op::Jump, m_return);
        return;
    }
    for (std::size_t at = m_loops.size(); at-- > 0;)
        if (m_loops[at].kind == exit.exit) {
            m_write.EmitJump(Op::Jump, *m_loops[at].exit);
            return;
        }
}

} // namespace quillon::vbscript
