// Calls of procedures and intrinsic functions, and names whose meaning shows when they run.

#include "platform/FailureNumbers.h"
#include "vbscript/machine/Elements.h"
#include "vbscript/machine/Instance.h"
#include "vbscript/machine/Machine.h"
#include "vbscript/machine/ProcedureReference.h"

namespace quillon::vbscript {

void Machine::PlainArguments(Variant* base, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        if (base[i].kind() == Kind::Reference)
            base[i] = Referred(base[i]);
}

void Machine::FinishNative(Variant* base, std::size_t arguments, Variant result) {
    for (std::size_t i = 1; i < arguments; ++i)
        base[i] = Variant();
    *base = std::move(result);
}

Machine::Step Machine::DoCall(Step at, bool wantsResult) {
    const Variant& callee = At(at->b);
    if (callee.kind() == Kind::Procedure)
        return Enter(*static_cast<const Code*>(callee.Pointer()), Base(at->a), at->c, {}, wantsResult);
    return CallValue(at, callee, at->c, NameOf(at->b), wantsResult);
}

Machine::Step Machine::DoCallName(Step at, bool wantsResult) {
    const CallSite& site = Top().code->sites[at->c];
    return CallValue(at, At(at->b), site.arguments, site.name, wantsResult);
}

Machine::Step Machine::DoCallSelf(Step at, bool wantsResult) {
    const ObjectRef me = Top().me;
    const ClassMember& member = static_cast<Instance*>(me.get())->Class()->members[at->b];
    if (member.get == nullptr)
        RaiseNamed(numbers::MemberNotSupported, member.name);
    return Enter(*member.get, Base(at->a), at->c, me, wantsResult);
}

// `callee(arguments)`, whatever the callee turns out to be.
Machine::Step Machine::CallValue(Step at, const Variant& callee, std::size_t arguments, NameId name,
                                 bool wantsResult) {
    if (const Frame* function = FunctionOf(callee))
        return Enter(*function->code, Base(at->a), arguments, function->me, wantsResult);
    const Variant& held = callee.kind() == Kind::Reference ? *callee.Target() : callee;
    switch (held.kind()) {
    case Kind::Procedure:
        return Enter(*static_cast<const Code*>(held.Pointer()), Base(at->a), arguments, {}, wantsResult);
    case Kind::Unset: return CallUnset(at, arguments, name, wantsResult);
    case Kind::Object:
    case Kind::ScriptObject: return IndexObject(at, held, arguments);
    case Kind::Array:
        if (!wantsResult)
            RaiseNamed(numbers::TypeMismatch, name);
        return IndexObject(at, held, arguments);
    default: RaiseNamed(numbers::TypeMismatch, name);
    }
}

// The function around a text that Execute or Eval runs, if `callee` is its result: its name with brackets
// calls it in the text too.
const Machine::Frame* Machine::FunctionOf(const Variant& callee) const noexcept {
    if (!m_frames.back().code->isSnippet || callee.kind() != Kind::Reference)
        return nullptr;
    auto frame = m_frames.rbegin();
    while (frame->code->isSnippet)
        ++frame;
    const bool isResult =
        frame->code->result >= 0 && callee.Target() == frame->registers + frame->code->result;
    return isResult ? &*frame : nullptr;
}

// A name that nothing has declared: a member of an object whose members are global, or of Me where Execute
// runs in a method.
Machine::Step Machine::CallUnset(Step at, std::size_t arguments, NameId name, bool wantsResult) {
    if (Top().code->isSnippet && Top().me) {
        const ClassMember* member = static_cast<Instance*>(Top().me.get())->Class()->Find(name);
        if (member != nullptr && member->get != nullptr)
            return Enter(*member->get, Base(at->a), arguments, Top().me, wantsResult);
    }
    if (CallGlobalMember(at, arguments, name, !wantsResult))
        return at + 1;
    RaiseNamed(Top().code->isExplicit ? numbers::VariableUndefined : numbers::TypeMismatch, name);
}

bool Machine::CallGlobalMember(Step at, std::size_t arguments, NameId name, bool isCall) {
    const std::optional<GlobalMembers::Found> found = m_members.Find(m_names.Utf8(name));
    if (!found)
        return false;
    Variant* const base = Base(at->a);
    FinishNative(base, arguments,
                 InvokeObject(found->object, found->member, isCall ? InvokeKind::Call : InvokeKind::Get,
                              {base, arguments}));
    return true;
}

Machine::Step Machine::DoLoadName(Step at) {
    const Variant& named = At(at->b);
    const Variant& held = named.kind() == Kind::Reference ? *named.Target() : named;
    const CallSite& site = Top().code->sites[at->c];
    const NameId name = site.name;
    if (const Frame* function = site.use == CallSite::Use::Brackets ? FunctionOf(named) : nullptr)
        return Enter(*function->code, Base(at->a), 0, function->me, true);
    switch (held.kind()) {
    case Kind::Procedure: return Enter(*static_cast<const Code*>(held.Pointer()), Base(at->a), 0, {}, true);
    case Kind::Unset:
        if (Top().code->isSnippet && Top().me) {
            const ClassMember* member = static_cast<Instance*>(Top().me.get())->Class()->Find(name);
            if (member != nullptr && member->get != nullptr)
                return Enter(*member->get, Base(at->a), 0, Top().me, true);
        }
        if (CallGlobalMember(at, 0, name, false))
            return at + 1;
        if (Top().code->isExplicit)
            RaiseNamed(numbers::VariableUndefined, name);
        *Base(at->a) = Variant();
        return at + 1;
    case Kind::Class: RaiseNamed(numbers::TypeMismatch, name);
    default: *Base(at->a) = Variant(Read(at->b)); return at + 1;
    }
}

// A variable handed over by reference; what is no variable hands over its value.
Machine::Step Machine::DoRefer(Step at) {
    Variant& named = At(at->b);
    switch (named.kind()) {
    case Kind::Reference: *Base(at->a) = Variant(named); return at + 1;
    case Kind::Procedure:
    case Kind::Class:
    case Kind::Constant: return DoLoadName(at);
    case Kind::Unset:
        if (SpaceOf(at->b) != Space::Global || Top().code->isExplicit ||
            IsGlobalMember(Top().code->sites[at->c].name))
            return DoLoadName(at);
        [[fallthrough]]; // a variable of the module, once it is written to
    default: *Base(at->a) = Variant::ReferenceTo(&named); return at + 1;
    }
}

Machine::Step Machine::DoCallBuiltin(Step at) {
    const Builtin& builtin = *m_builtins.functions[at->b];
    Variant* const base = Base(at->a);
    std::size_t count = at->c;
    if (!m_hidden.empty()) {
        const std::optional<NameId> name = m_names.FindUtf8(builtin.name);
        if (name && m_hidden.contains(*name))
            return CallValue(at, m_globals[m_globals.PlaceOf(*name)], count, *name, true);
    }
    while (count != 0 && base[count - 1].IsMissing())
        --count;
    if (count < builtin.minArguments ||
        (builtin.maxArguments != Builtin::AnyCount && at->c > builtin.maxArguments))
        throw NamedFailure(numbers::WrongArgumentCount, std::string(builtin.name));
    FinishNative(base, at->c, builtin.function(*this, {base, count}));
    return at + 1;
}

} // namespace quillon::vbscript
