// Members of objects, their elements, and New.

#include "platform/FailureNumbers.h"
#include "vbscript/machine/Convert.h"
#include "vbscript/machine/Elements.h"
#include "vbscript/machine/Instance.h"
#include "vbscript/machine/Machine.h"
#include "vbscript/machine/ProcedureReference.h"

namespace quillon::vbscript {

ObjectRef Machine::ObjectIn(Operand operand) {
    const Variant& value = Read(operand);
    if (!value.IsObject())
        RaiseNamed(numbers::ObjectRequired, NameOf(operand));
    if (value.IsNothing())
        RaiseNamed(numbers::ObjectNotSet, NameOf(operand));
    return value.AsObject();
}

// The member of a script class that a place of the program names, remembered there for the class.
const ClassMember& Machine::MemberOf(const Instance& instance, CallSite& site) {
    const ClassInfo* info = instance.Class();
    if (info == nullptr)
        throw Failure(numbers::InvalidCall);
    if (site.shape != info) {
        const ClassMember* member = info->Find(site.name);
        if (member == nullptr)
            RaiseNamed(numbers::MemberNotSupported, site.name);
        site.shape = info;
        site.member = static_cast<MemberId>(member - info->members.data());
    }
    return info->members[static_cast<std::size_t>(site.member)];
}

MemberId Machine::MemberOf(Object& object, CallSite& site) {
    auto* own = dynamic_cast<ScriptObject*>(&object);
    const void* shape = own == nullptr ? nullptr : own->Shape();
    if (shape != nullptr && site.shape == shape)
        return site.member;
    const std::optional<MemberId> member = object.FindMember(m_names.Utf8(site.name));
    if (!member)
        RaiseNamed(numbers::MemberNotSupported, site.name);
    site.shape = shape;
    site.member = *member;
    return *member;
}

Machine::Step Machine::DoGetMember(Step at, InvokeKind kind) {
    const ObjectRef object = ObjectIn(at->b);
    CallSite& site = Top().code->sites[at->c];
    const bool isOwn = Read(at->b).kind() == Kind::ScriptObject;
    if (Instance* instance = isOwn ? static_cast<ScriptObject*>(object.get())->AsInstance() : nullptr)
        return GetFromInstance(at, *instance, site, kind == InvokeKind::Get);
    Variant* const base = Base(at->a);
    const std::size_t arguments = site.arguments;
    const MemberId member = MemberOf(*object, site);
    Variant result = InvokeObject(object, member, kind, {base, arguments});
    FinishNative(base, arguments, kind == InvokeKind::Get ? std::move(result) : Variant());
    return at + 1;
}

Machine::Step Machine::GetFromInstance(Step at, Instance& instance, CallSite& site, bool wantsResult) {
    const ClassMember& member = MemberOf(instance, site);
    if (!member.isPublic && site.use != CallSite::Use::Self)
        RaiseNamed(numbers::MemberNotSupported, site.name);
    if (member.field < 0) {
        if (member.get == nullptr)
            RaiseNamed(numbers::MemberNotSupported, site.name);
        return Enter(*member.get, Base(at->a), site.arguments, ObjectRef(&instance), wantsResult);
    }
    const Variant field = instance.Fields()[member.field];
    if (site.arguments != 0)
        return IndexObject(at, field, site.arguments);
    *Base(at->a) = field;
    return at + 1;
}

Machine::Step Machine::DoPutMember(Step at, InvokeKind kind) {
    const ObjectRef object = ObjectIn(at->b);
    CallSite& site = Top().code->sites[at->c];
    Variant* const base = Base(at->a);
    const std::size_t arguments = site.arguments;
    Variant& value = base[arguments - 1];
    const bool isSet = kind == InvokeKind::Set;
    if (isSet && !value.IsObject())
        throw Failure(numbers::ObjectRequired);
    if (!isSet)
        value = AssignedValue(std::move(value));
    auto* own = dynamic_cast<ScriptObject*>(object.get());
    if (Instance* instance = own == nullptr ? nullptr : own->AsInstance())
        return PutToInstance(at, *instance, site, isSet);
    const MemberId member = MemberOf(*object, site);
    InvokeObject(object, member, kind, {base, arguments});
    FinishNative(base, arguments, {});
    return at + 1;
}

// Assigns to Err, or to a name that was a member of one of the host's objects when the text came, or to an
// element of it. A variable that the module has declared since then comes first.
void Machine::DoPutName(Step at, InvokeKind kind) {
    const CallSite& site = Top().code->sites[at->c];
    Variant* const base = Base(at->a);
    const std::span<Variant> arguments(base, site.arguments);
    const bool isSet = kind == InvokeKind::Set;
    Variant& value = arguments.back();
    const Variant& meant = At(at->b);
    const Variant& named = meant.kind() == Kind::Reference ? *meant.Target() : meant;
    const bool isUndeclared = meant.kind() == Kind::Unset;
    if (IsErr(named)) {
        if (isSet)
            RaiseNamed(numbers::IllegalAssignment, site.name);
        value = AssignedValue(std::move(value));
        InvokeObject(named.AsObject(), DefaultMemberId, kind, arguments);
    } else if (const auto found = isUndeclared ? m_members.Find(m_names.Utf8(site.name)) : std::nullopt) {
        if (isSet && !value.IsObject())
            RaiseNamed(numbers::ObjectRequired, site.name);
        if (!isSet)
            value = AssignedValue(std::move(value));
        InvokeObject(found->object, found->member, kind, arguments);
    } else if (arguments.size() > 1) {
        WriteElement(Target(at->b), arguments.first(arguments.size() - 1), Variant(value), isSet);
    } else {
        AssignVariable(Target(at->b), Variant(value), isSet);
    }
    FinishNative(base, arguments.size(), {});
}

Machine::Step Machine::PutToInstance(Step at, Instance& instance, CallSite& site, bool isSet) {
    const ClassMember& member = MemberOf(instance, site);
    Variant* const base = Base(at->a);
    const std::size_t arguments = site.arguments;
    if (!(isSet ? member.isPublicSet : member.isPublicLet) && site.use != CallSite::Use::Self)
        RaiseNamed(numbers::MemberNotSupported, site.name);
    if (member.field < 0) {
        const Code* code = isSet ? member.set.get() : member.let.get();
        if (code == nullptr)
            RaiseNamed(numbers::MemberNotSupported, site.name);
        return Enter(*code, base, arguments, ObjectRef(&instance), false);
    }
    Variant& field = instance.Fields()[member.field];
    Variant value = std::move(base[arguments - 1]);
    if (arguments > 1)
        WriteElement(field, {base, arguments - 1}, std::move(value), isSet);
    else
        AssignVariable(field, std::move(value), isSet);
    FinishNative(base, arguments, {});
    return at + 1;
}

// `container(arguments)`, the arguments in registers from the instruction's first one on.
Machine::Step Machine::IndexObject(Step at, const Variant& container, std::size_t arguments) {
    Variant* const base = Base(at->a);
    if (container.kind() == Kind::ScriptObject) {
        const ObjectRef object = container.AsObject();
        if (Instance* instance = static_cast<ScriptObject*>(object.get())->AsInstance()) {
            const ClassInfo* info = instance->Class();
            if (info == nullptr || info->defaultMember < 0)
                throw Failure(numbers::MemberNotSupported);
            return Enter(*info->members[static_cast<std::size_t>(info->defaultMember)].get, base, arguments,
                         object, true);
        }
        const auto* reference = dynamic_cast<const ProcedureReference*>(object.get());
        if (const Code* procedure = reference == nullptr ? nullptr : reference->Procedure())
            return Enter(*procedure, base, arguments, {}, true);
    }
    FinishNative(base, arguments, ReadElement(Variant(container), {base, arguments}));
    return at + 1;
}

Machine::Step Machine::DoNew(Step at) {
    const Variant& named = At(at->b);
    const NameId name = Top().code->sites[at->c].name;
    Variant* const base = Base(at->a);
    if (named.kind() == Kind::Class) {
        const auto& info = *static_cast<const ClassInfo*>(named.Pointer());
        const ObjectRef instance = Instance::Create(info);
        *base = Variant(instance);
        return info.initialize == nullptr ? at + 1 : Enter(*info.initialize, base + 1, 0, instance, false);
    }
    const auto creatable = m_builtins.creatables.find(name);
    if (creatable == m_builtins.creatables.end())
        RaiseNamed(numbers::ClassNotDefined, name);
    *base = Variant(creatable->second->create());
    return at + 1;
}

} // namespace quillon::vbscript
