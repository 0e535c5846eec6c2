#include "vbscript/machine/Elements.h"

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "vbscript/machine/Array.h"
#include "vbscript/machine/Convert.h"
#include "vbscript/machine/ScriptObject.h"

namespace quillon::vbscript {
namespace {

// Converting a subscript may run script code, which may change the array: look at that afterwards only.
struct Subscripts {
    explicit Subscripts(std::span<const Variant> arguments)
        : count(arguments.size()) {
        if (count > ArrayBuffer::MaxDimensions || count == 0)
            throw Failure(quillon::numbers::SubscriptOutOfRange);
        for (std::size_t i = 0; i < count; ++i)
            numbers[i] = ToLong(arguments[i]);
    }
    std::size_t PlaceIn(const ArrayBuffer& array) const { return array.IndexOf({numbers, count}); }

    std::int64_t numbers[ArrayBuffer::MaxDimensions];
    std::size_t count;
};

const Variant& Target(const Variant& value) noexcept {
    return value.kind() == Kind::Reference ? *value.Target() : value;
}

Value InvokeHost(const ObjectRef& object, MemberId member, InvokeKind kind, std::span<Variant> arguments) {
    std::vector<Value> values;
    values.reserve(arguments.size());
    for (const Variant& argument : arguments)
        values.push_back(ToValue(argument));
    const bool lends =
        std::ranges::any_of(arguments, [](const Variant& a) { return a.kind() == Kind::Reference; });
    const std::vector<Value> before = lends ? values : std::vector<Value>();
    Value result = object->Invoke(member, kind, values);
    for (std::size_t i = 0; i < before.size(); ++i)
        if (arguments[i].kind() == Kind::Reference && !(values[i] == before[i]))
            *arguments[i].Target() = FromValue(values[i]);
    return result;
}

Variant InvokeOnce(const ObjectRef& object, MemberId member, InvokeKind kind, std::span<Variant> arguments) {
    auto* own = dynamic_cast<ScriptObject*>(object.get());
    if (own == nullptr)
        return FromValue(InvokeHost(object, member, kind, arguments));
    for (Variant& argument : arguments)
        if (argument.kind() == Kind::Reference)
            argument = Referred(argument);
    return own->Access(member, kind, arguments);
}

} // namespace

Variant Referred(const Variant& reference) noexcept {
    const Variant& target = *reference.Target();
    return target.kind() == Kind::Unset ? Variant() : target;
}

Variant InvokeObject(const ObjectRef& object, MemberId member, InvokeKind kind,
                     std::span<Variant> arguments) {
    const ObjectRef kept = object;
    const bool reads = kind == InvokeKind::Get || kind == InvokeKind::Call;
    if (!reads || arguments.empty() || member == DefaultMemberId)
        return InvokeOnce(kept, member, kind, arguments);
    try {
        return InvokeOnce(kept, member, kind, arguments);
    } catch (const Failure& failure) {
        if (failure.number() != numbers::WrongArgumentCount ||
            dynamic_cast<ScriptObject*>(kept.get()) != nullptr)
            throw;
        const Variant value = InvokeOnce(kept, member, InvokeKind::Get, {});
        if (!value.IsObject() && !value.IsArray())
            throw;
        return ReadElement(value, arguments);
    }
}

Variant ReadElement(const Variant& container, std::span<Variant> arguments) {
    const Variant held = Target(container);
    if (held.IsArray()) {
        for (Variant& argument : arguments)
            if (argument.kind() == Kind::Reference)
                argument = Referred(argument);
        const ArrayBuffer& array = *held.AsArray();
        return array.Elements()[Subscripts(arguments).PlaceIn(array)];
    }
    if (!held.IsObject())
        throw Failure(numbers::TypeMismatch);
    if (held.IsNothing())
        throw Failure(numbers::ObjectNotSet);
    return InvokeObject(held.AsObject(), DefaultMemberId, InvokeKind::Get, arguments);
}

Variant& ElementPlace(Variant& container, std::span<const Variant> arguments) {
    const Subscripts subscripts(arguments);
    if (!container.IsArray())
        throw Failure(numbers::TypeMismatch);
    const std::size_t place = subscripts.PlaceIn(*container.AsArray());
    return OwnArray(container)->Elements()[place];
}

void WriteElement(Variant& container, std::span<Variant> arguments, Variant value, bool isSet) {
    Variant& held = container.kind() == Kind::Reference ? *container.Target() : container;
    if (isSet && !value.IsObject())
        throw Failure(numbers::ObjectRequired);
    if (held.IsArray()) {
        if (!isSet)
            value = AssignedValue(std::move(value));
        ElementPlace(held, arguments).Swap(value);
        return;
    }
    if (!held.IsObject())
        throw Failure(numbers::TypeMismatch);
    if (held.IsNothing())
        throw Failure(numbers::ObjectNotSet);
    std::vector<Variant> all(arguments.begin(), arguments.end());
    all.push_back(isSet ? std::move(value) : PlainValue(value));
    const ObjectRef object = held.AsObject();
    InvokeObject(object, DefaultMemberId, isSet ? InvokeKind::Set : InvokeKind::Let, all);
}

Variant AssignedValue(Variant value) {
    if (value.IsObject())
        return AssignedValue(PlainValue(value));
    if (value.IsArray() && value.AsArray()->IsFixedSize())
        return Variant(value.AsArray()->Copy(false));
    return value;
}

void AssignVariable(Variant& variable, Variant value, bool isSet) {
    if (isSet && !value.IsObject())
        throw Failure(numbers::ObjectRequired);
    if (!isSet)
        value = AssignedValue(std::move(value));
    if (variable.IsArray() && variable.AsArray()->IsFixedSize())
        throw Failure(numbers::TypeMismatch);
    if (variable.IsArray() && variable.AsArray()->IsLocked())
        throw Failure(numbers::ArrayLocked);
    variable.Swap(value);
}

} // namespace quillon::vbscript
