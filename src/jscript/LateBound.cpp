#include "jscript/LateBound.h"

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::jscript {
namespace {

bool WantsArguments(const Failure& failure) {
    return failure.number() == numbers::WrongArgumentCount ||
           failure.number() == numbers::ArgumentNotOptional;
}

// `work(object, member)`; where a property takes no arguments, the same with the default member of its value.
template <class Work>
auto WithArguments(const ObjectRef& object, MemberId member, bool hasArguments, Work work) {
    const ObjectRef kept = object; // the script may let go of it meanwhile
    try {
        return work(kept, member);
    } catch (const Failure& failure) {
        if (failure.number() != numbers::WrongArgumentCount || !hasArguments)
            throw;
        const Value collection = kept->Invoke(member, InvokeKind::Get, {});
        const ObjectRef* const reference = collection.If<ObjectRef>();
        if (reference == nullptr || !*reference)
            throw;
        return work(*reference, DefaultMemberId);
    }
}

} // namespace

Value ReadMember(const ObjectRef& object, MemberId member, std::span<Value> arguments) {
    return WithArguments(object, member, !arguments.empty(), [&](const ObjectRef& owner, MemberId read) {
        return owner->Invoke(read, InvokeKind::Get, arguments);
    });
}

std::optional<Value> ReadAlone(const ObjectRef& object, MemberId member) {
    try {
        return ObjectRef(object)->Invoke(member, InvokeKind::Get, {});
    } catch (const Failure& failure) {
        if (!WantsArguments(failure))
            throw;
        return std::nullopt;
    }
}

void WriteMember(const ObjectRef& object, MemberId member, std::span<Value> arguments) {
    const InvokeKind kind = arguments.back().IsObject() ? InvokeKind::Set : InvokeKind::Let;
    WithArguments(object, member, arguments.size() > 1,
                  [&](const ObjectRef& owner, MemberId written) { owner->Invoke(written, kind, arguments); });
}

MemberId MemberNamed(const ObjectRef& object, std::string_view name) {
    const auto member = object->FindMember(name);
    if (!member)
        throw Failure(numbers::MemberNotSupported);
    return *member;
}

Value PlainValue(const ObjectRef& object) {
    const ObjectRef kept = object;
    try {
        return kept->Invoke(DefaultMemberId, InvokeKind::Get, {});
    } catch (const Failure& failure) {
        if (failure.number() != numbers::MemberNotSupported && !WantsArguments(failure))
            throw;
        return Value("[object " + kept->TypeName() + "]");
    }
}

} // namespace quillon::jscript
