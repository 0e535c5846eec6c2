#include "jscript/Members.h"

#include "platform/FailureNumbers.h"

namespace quillon::jscript {
namespace {

constexpr const char* ArgumentsKey = DUK_HIDDEN_SYMBOL("arguments");

MemberId MemberIn(duk_context* context, duk_idx_t index) {
    duk_get_prop_string(context, index, MemberKey);
    const MemberId member = duk_get_int(context, -1);
    duk_pop(context);
    return member;
}

// A property without parameters, used as a collection: `Tables(1)` is Tables, then its default member.
// Raises the failure again where there is no such collection.
ObjectRef CollectionBehind(const Failure& failure, const ObjectRef& object, MemberId member,
                           bool hasArguments) {
    if (failure.number() != numbers::WrongArgumentCount || !hasArguments)
        throw Failure(failure);
    const Value collection = object->Invoke(member, InvokeKind::Get, {});
    const ObjectRef* const reference = collection.If<ObjectRef>();
    if (reference == nullptr || !*reference)
        throw Failure(failure);
    return *reference;
}

duk_ret_t CallMember(duk_context* context) {
    Engine& engine = Engine::Of(context);
    engine.Poll(context);
    Frame& frame = engine.OpenFrame();
    engine.ReadArguments(context, frame);
    duk_push_current_function(context);
    Wrapped* const wrapped = WrappedIn(context, -1);
    const MemberId member = MemberIn(context, -1);
    const bool succeeded = engine.Shielded([&] {
        const ObjectRef object = wrapped->object;
        try {
            frame.result = object->Invoke(member, InvokeKind::Get, frame.values);
        } catch (const Failure& failure) {
            frame.result = CollectionBehind(failure, object, member, !frame.values.empty())
                               ->Invoke(DefaultMemberId, InvokeKind::Get, frame.values);
        }
    });
    if (!succeeded)
        engine.ThrowShielded(context);
    engine.PushValue(context, frame.result);
    engine.CloseFrame();
    return 1;
}

// The setter behind `object.Item(1) = value`: the kept arguments, then the value.
duk_ret_t AssignMember(duk_context* context) {
    Engine& engine = Engine::Of(context);
    engine.Poll(context);
    duk_push_current_function(context);
    Wrapped* const wrapped = WrappedIn(context, -1);
    const MemberId member = MemberIn(context, -1);
    Frame& frame = engine.OpenFrame();
    duk_get_prop_string(context, -1, ArgumentsKey);
    const auto count = static_cast<duk_uarridx_t>(duk_get_length(context, -1));
    frame.values.resize(count + 1);
    for (duk_uarridx_t i = 0; i < count; ++i) {
        duk_get_prop_index(context, -1, i);
        engine.ReadValue(context, -1, frame.values[i]);
        duk_pop(context);
    }
    engine.ReadValue(context, 0, frame.values[count]);
    const bool succeeded = engine.Shielded([&] {
        const ObjectRef object = wrapped->object;
        const InvokeKind kind = frame.values.back().IsObject() ? InvokeKind::Set : InvokeKind::Let;
        try {
            object->Invoke(member, kind, frame.values);
        } catch (const Failure& failure) {
            CollectionBehind(failure, object, member, count != 0)
                ->Invoke(DefaultMemberId, kind, frame.values);
        }
    });
    if (!succeeded)
        engine.ThrowShielded(context);
    engine.CloseFrame();
    return 0;
}

// [... owner] to [... owner function]
void PushFunction(duk_context* context, duk_idx_t owner, MemberId member, duk_c_function function,
                  duk_idx_t arguments) {
    owner = duk_normalize_index(context, owner);
    duk_push_c_function(context, function, arguments);
    duk_push_pointer(context, WrappedIn(context, owner));
    duk_put_prop_string(context, -2, WrappedKey);
    duk_push_int(context, member);
    duk_put_prop_string(context, -2, MemberKey);
    duk_dup(context, owner);
    duk_put_prop_string(context, -2, ProxyKey);
}

// Keeps the arguments in an object whose one property sets the member.
duk_ret_t KeepArguments(duk_context* context) {
    Engine& engine = Engine::Of(context);
    const duk_idx_t count = duk_get_top(context);
    duk_push_array(context);
    for (duk_idx_t i = 0; i < count; ++i) {
        duk_dup(context, i);
        duk_put_prop_index(context, count, static_cast<duk_uarridx_t>(i));
    }
    duk_push_object(context);
    duk_push_string(context, AssignedName);
    duk_push_current_function(context);
    PushFunction(context, -1, MemberIn(context, -1), AssignMember, 1);
    duk_remove(context, -2);
    duk_dup(context, count);
    duk_put_prop_string(context, -2, ArgumentsKey);
    duk_def_prop(context, -3, DUK_DEFPROP_HAVE_SETTER);
    engine.NoteAssignable();
    return 1;
}

} // namespace

Wrapped* WrappedIn(duk_context* context, duk_idx_t index) {
    duk_get_prop_string(context, index, WrappedKey);
    auto* const wrapped = static_cast<Wrapped*>(duk_get_pointer(context, -1));
    duk_pop(context);
    return wrapped;
}

void PushMember(duk_context* context, duk_idx_t owner, MemberId member, bool assigned) {
    PushFunction(context, owner, member, assigned ? KeepArguments : CallMember, DUK_VARARGS);
}

} // namespace quillon::jscript
