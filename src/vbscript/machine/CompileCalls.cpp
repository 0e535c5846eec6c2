// Calls, elements, members and New.

#include "platform/FailureNumbers.h"
#include "vbscript/machine/ProcedureCompiler.h"

namespace quillon::vbscript {

Operand ProcedureCompiler::CallValue(const CallExpression& call) {
    const Expression* callee = call.callee;
    if (callee->kind == ExpressionKind::Name) {
        const auto& name = static_cast<const NameExpression&>(*callee);
        const Binding binding = Find(name.name);
        const bool isVariable = binding.kind == Binding::Kind::Register || IsPerhapsVariable(binding);
        if (m_code.isSnippet && call.arguments.empty() && isVariable)
            return LoadName(OperandOf(binding), name.name, CallSite::Use::Brackets);
        return NamedCall(name, call.arguments, false);
    }
    if (callee->kind == ExpressionKind::Member)
        return MemberValue(static_cast<const MemberExpression&>(*callee), call.arguments);
    const std::uint16_t place = m_write.NextRegister();
    return IndexValue(Value(*callee), call.arguments, place);
}

// What a call left in `base` moved to the register that was free first.
Operand ProcedureCompiler::FinishCall(std::uint16_t base, std::uint16_t place) {
    m_write.ReleaseTo(place);
    (void)m_write.TakeRegister();
    if (base != place)
        m_write.Emit(Op::Take, place, base);
    m_write.MayHoldObject(place);
    return place;
}

// `f`, `f(x)`, `a(i)`: what a name with or without arguments means.
Operand ProcedureCompiler::NamedCall(const NameExpression& name, std::span<Argument> arguments,
                                     bool isStatement) {
    const Binding binding = Find(name.name);
    const std::uint16_t place = m_write.NextRegister();
    const auto count = static_cast<unsigned>(arguments.size());
    switch (binding.kind) {
    case Binding::Kind::Register:
        if (static_cast<std::int32_t>(binding.place) == m_code.result && !m_code.isSnippet)
            break; // a function's own name with brackets calls it
        if (m_code.isSnippet && !isStatement)
            return DynamicCall(OperandOf(binding), name.name, arguments, false);
        [[fallthrough]];
    case Binding::Kind::Global:
    case Binding::Kind::Field:
        if (isStatement)
            return DynamicCall(OperandOf(binding), name.name, arguments, true);
        return IndexValue(OperandOf(binding), arguments, place);
    case Binding::Kind::Literal:
    case Binding::Kind::Constant: return IndexValue(NameValue(name), arguments, place);
    case Binding::Kind::Procedure: {
        const std::uint16_t base = Arguments(arguments, true);
        m_write.Emit(isStatement ? Op::CallSub : Op::Call, base, MakeOperand(Space::Global, binding.place),
                     count);
        return FinishCall(base, place);
    }
    case Binding::Kind::SelfMember: {
        const std::uint16_t base = Arguments(arguments, true);
        m_write.Emit(isStatement ? Op::CallSelfSub : Op::CallSelf, base, static_cast<unsigned>(binding.place),
                     count);
        return FinishCall(base, place);
    }
    case Binding::Kind::Builtin: {
        const std::uint16_t base = Arguments(arguments, false);
        m_write.Emit(Op::CallBuiltin, base, static_cast<unsigned>(binding.place), count);
        const BuiltinUse use = m_context.builtins.functions[binding.place]->use;
        if (isStatement && use == BuiltinUse::AsValue)
            RaiseHere(numbers::VariantTypeNotSupported);
        if (!isStatement && use == BuiltinUse::AsStatement)
            RaiseHere(numbers::TypeMismatch);
        return FinishCall(base, place);
    }
    case Binding::Kind::Special:
        return SpecialCall(static_cast<BuiltinNames::Special>(binding.place), arguments);
    case Binding::Kind::FreeRegister:
    case Binding::Kind::FreeGlobal: return DynamicCall(OperandOf(binding), name.name, arguments, isStatement);
    case Binding::Kind::Free:
    case Binding::Kind::Class: break;
    }
    if (binding.kind == Binding::Kind::Register)
        return OwnCall(name, arguments, isStatement);
    return DynamicCall(GlobalOperand(name.name), name.name, arguments, isStatement);
}

// A procedure calls itself.
Operand ProcedureCompiler::OwnCall(const NameExpression& name, std::span<Argument> arguments,
                                   bool isStatement) {
    const std::uint16_t place = m_write.NextRegister();
    const auto count = static_cast<unsigned>(arguments.size());
    const std::uint16_t base = Arguments(arguments, true);
    const bool isMember = m_class != nullptr;
    const auto member = isMember ? m_class->names.at(name.name).place : 0;
    const unsigned callee = isMember ? static_cast<unsigned>(member) : GlobalOperand(name.name);
    const Op op =
        isMember ? (isStatement ? Op::CallSelfSub : Op::CallSelf) : (isStatement ? Op::CallSub : Op::Call);
    m_write.Emit(op, base, callee, count);
    return FinishCall(base, place);
}

Operand ProcedureCompiler::LoadName(Operand named, NameId name, CallSite::Use use) {
    const std::uint16_t target = m_write.TakeRegister();
    m_write.Emit(Op::LoadName, target, named, m_write.SiteOf(name, 0, use));
    m_write.MayHoldObject(target);
    return target;
}

Operand ProcedureCompiler::DynamicCall(Operand callee, NameId name, std::span<Argument> arguments,
                                       bool isStatement) {
    if (arguments.empty() && !isStatement)
        return LoadName(callee, name, CallSite::Use::Plain);
    const std::uint16_t place = m_write.NextRegister();
    const std::uint16_t base = Arguments(arguments, true);
    m_write.Emit(isStatement ? Op::CallNameSub : Op::CallName, base, callee,
                 m_write.SiteOf(name, arguments.size()));
    return FinishCall(base, place);
}

Operand ProcedureCompiler::IndexValue(Operand array, std::span<Argument> arguments, std::uint16_t place) {
    if (arguments.size() == 1 && arguments.front() != nullptr) {
        const Operand kept = Protected(array, false, place);
        const Operand subscript = Value(*arguments.front());
        m_write.ReleaseTo(place);
        const std::uint16_t target = m_write.TakeRegister();
        m_write.Emit(Op::Index, target, kept, subscript);
        m_write.MayHoldObject(target);
        return target;
    }
    const std::uint16_t base = Arguments(arguments, false);
    m_write.Emit(Op::IndexMany, base, array, static_cast<unsigned>(arguments.size()));
    return FinishCall(base, place);
}

Operand ProcedureCompiler::SpecialCall(BuiltinNames::Special special, std::span<Argument> arguments) {
    const std::uint16_t place = m_write.NextRegister();
    const std::uint16_t base = Arguments(arguments, false);
    if (arguments.size() != 1) {
        RaiseHere(numbers::WrongArgumentCount);
        return FinishCall(base, place);
    }
    using Special = BuiltinNames::Special;
    const ExecuteKind kind = special == Special::Execute ? ExecuteKind::Local
                             : special == Special::Eval  ? ExecuteKind::Expression
                                                         : ExecuteKind::Global;
    if (special == Special::GetRef)
        m_write.Emit(Op::GetReference, base);
    else
        m_write.Emit(Op::Execute, base, static_cast<unsigned>(kind));
    return FinishCall(base, place);
}

Operand ProcedureCompiler::ObjectOf(const MemberExpression& member) {
    if (member.object != nullptr)
        return Value(*member.object);
    if (!m_withs.empty())
        return m_withs.back();
    RaiseHere(numbers::InvalidReference);
    return m_write.Constant({});
}

Operand ProcedureCompiler::MemberValue(const MemberExpression& member, std::span<Argument> arguments) {
    const std::uint16_t place = m_write.NextRegister();
    const Operand object = ObjectOf(member);
    if (arguments.empty()) {
        m_write.ReleaseTo(place);
        const std::uint16_t target = m_write.TakeRegister();
        m_write.Emit(Op::GetMember, target, object, m_write.SiteOf(member.name, 0));
        m_write.MayHoldObject(target);
        return target;
    }
    const std::uint16_t base = Arguments(arguments, true);
    m_write.Emit(Op::GetMember, base, object, m_write.SiteOf(member.name, arguments.size()));
    m_write.MayHoldObject(base);
    return FinishCall(base, place);
}

Operand ProcedureCompiler::NewValue(const NewExpression& created) {
    const std::uint16_t target = m_write.TakeRegister();
    m_write.ReleaseTo(m_write.TakeRegister()); // for Class_Initialize to begin at
    m_write.Emit(Op::New, target, GlobalOperand(created.name), m_write.SiteOf(created.name, 0));
    m_write.MayHoldObject(target);
    return target;
}

// An element of what is surely a variable, which can be lent by reference.
bool ProcedureCompiler::IsElement(const Expression* argument) const {
    if (argument == nullptr || argument->kind != ExpressionKind::Call)
        return false;
    const auto* call = static_cast<const CallExpression*>(argument);
    if (call->callee->kind != ExpressionKind::Name || call->arguments.empty())
        return false;
    const Binding binding = Find(static_cast<const NameExpression*>(call->callee)->name);
    return IsVariable(binding) && !(binding.kind == Binding::Kind::Register &&
                                    static_cast<std::int32_t>(binding.place) == m_code.result);
}

std::uint16_t ProcedureCompiler::Arguments(std::span<Argument> arguments, bool byReference) {
    std::uint16_t lock = m_write.NextRegister();
    if (byReference)
        for (const Expression* argument : arguments)
            if (IsElement(argument))
                m_write.MayHoldObject(m_write.TakeRegister());
    const std::uint16_t base = m_write.NextRegister();
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const auto place = static_cast<std::uint16_t>(base + i);
        ArgumentInto(arguments[i], place, byReference, lock);
        m_write.ReleaseTo(place);
        (void)m_write.TakeRegister();
    }
    if (arguments.empty())
        (void)m_write.TakeRegister();
    return base;
}

void ProcedureCompiler::ArgumentInto(const Expression* argument, std::uint16_t place, bool byReference,
                                     std::uint16_t& lock) {
    if (argument == nullptr) {
        const Operand missing = m_write.Constant(MissingValue{});
        m_write.Emit(Op::Copy, place, missing);
        m_write.ReleaseTo(place);
        (void)m_write.TakeRegister();
        return;
    }
    if (!byReference) {
        ValueInto(*argument, place);
        return;
    }
    if (argument->kind == ExpressionKind::Name) {
        const NameId name = static_cast<const NameExpression*>(argument)->name;
        const Binding binding = Find(name);
        if (IsVariable(binding) || IsPerhapsVariable(binding)) {
            (void)m_write.TakeRegister();
            m_write.Emit(Op::Refer, place, OperandOf(binding), m_write.SiteOf(name, 0));
            m_write.MayHoldObject(place);
            return;
        }
    } else if (IsElement(argument)) {
        const auto* call = static_cast<const CallExpression*>(argument);
        const Binding binding = Find(static_cast<const NameExpression*>(call->callee)->name);
        (void)m_write.TakeRegister();
        ReferElement(OperandOf(binding), call->arguments, place, lock++);
        return;
    }
    ValueInto(*argument, place);
}

void ProcedureCompiler::ReferElement(Operand array, std::span<Argument> subscripts, std::uint16_t place,
                                     std::uint16_t lock) {
    const std::uint16_t first = Arguments(subscripts, false);
    m_write.Emit(Op::ReferElement, place, array, first);
    m_write.EmitWord(static_cast<std::uint32_t>(subscripts.size()), lock);
    m_write.MayHoldObject(place);
    m_write.MayHoldObject(lock);
}

} // namespace quillon::vbscript
