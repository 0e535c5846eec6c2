#include "jscript/Bridge.h"

#include "jscript/Encoding.h"
#include "jscript/Members.h"
#include "platform/FailureNumbers.h"

namespace quillon::jscript {
namespace {

// Keys that scripts cannot spell.
constexpr const char* NameKey = DUK_HIDDEN_SYMBOL("name");
constexpr const char* HandlerKey = DUK_HIDDEN_SYMBOL("handler");

constexpr std::int32_t FunctionResultAssigned = 5003;

// The text at `index` into a frame's text. What is no text, a symbol say, becomes empty.
void ReadName(duk_context* context, duk_idx_t index, Frame& frame) {
    duk_size_t length = 0;
    const char* const text =
        duk_is_symbol(context, index) ? nullptr : duk_get_lstring(context, index, &length);
    frame.text = text == nullptr ? std::string() : Utf8FromCesu8({text, length});
}

// What an object stands for where a text or a number is wanted.
duk_ret_t DefaultValue(duk_context* context) {
    Engine& engine = Engine::Of(context);
    Frame& frame = engine.OpenFrame();
    duk_push_this(context);
    const Wrapped* const wrapped = engine.WrappedByProxy(duk_get_heapptr(context, -1));
    if (wrapped == nullptr)
        engine.Throw(context, numbers::ObjectRequired);
    const bool succeeded = engine.Shielded([&] {
        try {
            frame.result = ObjectRef(wrapped->object)->Invoke(DefaultMemberId, InvokeKind::Get, {});
        } catch (const Failure&) { // without one it is known by its class
            frame.result = Value("[object " + wrapped->object->TypeName() + "]");
        }
    });
    if (!succeeded)
        engine.ThrowShielded(context);
    engine.PushValue(context, frame.result);
    engine.CloseFrame();
    return 1;
}

// --- traps; the target is the first argument ---

// A member that needs arguments is not there to be read: it waits for them.
bool NeedsArguments(std::int32_t number) {
    return number == numbers::WrongArgumentCount || number == numbers::ArgumentNotOptional;
}

duk_ret_t GetUnknown(Engine& engine, duk_context* context, const Frame& frame, bool called) {
    const bool conversion = frame.text == "toString" || frame.text == "valueOf";
    if (called && !conversion) {
        engine.CloseFrame();
        engine.Throw(context, numbers::MemberNotSupported);
    }
    engine.CloseFrame();
    if (conversion)
        duk_push_c_function(context, DefaultValue, 0);
    else
        duk_push_undefined(context);
    return 1;
}

duk_ret_t GetTrap(duk_context* context) {
    Engine& engine = Engine::Of(context);
    engine.Poll(context);
    const bool called = engine.TakeCalled(duk_get_heapptr(context, 1));
    const bool assigned = called && engine.IsCalledToAssign();
    Wrapped* const wrapped = WrappedIn(context, 0);
    Frame& frame = engine.OpenFrame();
    ReadName(context, 1, frame);
    std::optional<MemberId> member;
    if (!engine.Shielded([&] { member = wrapped->object->FindMember(frame.text); }))
        engine.ThrowShielded(context);
    if (!member || frame.text.empty())
        return GetUnknown(engine, context, frame, called);
    bool waits = called;
    if (!waits && !engine.Shielded([&] {
            frame.result = ObjectRef(wrapped->object)->Invoke(*member, InvokeKind::Get, {});
        })) {
        waits = NeedsArguments(engine.ShieldedNumber());
        if (!waits)
            engine.ThrowShielded(context);
    }
    if (waits)
        PushMember(context, 0, *member, assigned);
    else
        engine.PushValue(context, frame.result);
    engine.CloseFrame();
    return 1;
}

duk_ret_t SetTrap(duk_context* context) {
    Engine& engine = Engine::Of(context);
    engine.Poll(context);
    Wrapped* const wrapped = WrappedIn(context, 0);
    Frame& frame = engine.OpenFrame();
    ReadName(context, 1, frame);
    frame.values.resize(1);
    engine.ReadValue(context, 2, frame.values[0]);
    const bool succeeded = engine.Shielded([&] {
        const auto member = wrapped->object->FindMember(frame.text);
        if (!member)
            throw Failure(numbers::MemberNotSupported);
        const InvokeKind kind = frame.values[0].IsObject() ? InvokeKind::Set : InvokeKind::Let;
        ObjectRef(wrapped->object)->Invoke(*member, kind, frame.values);
    });
    if (!succeeded)
        engine.ThrowShielded(context);
    engine.CloseFrame();
    duk_push_true(context);
    return 1;
}

duk_ret_t HasTrap(duk_context* context) {
    Engine& engine = Engine::Of(context);
    const Wrapped* const wrapped = WrappedIn(context, 0);
    Frame& frame = engine.OpenFrame();
    ReadName(context, 1, frame);
    bool found = false;
    if (!engine.Shielded([&] { found = wrapped->object->FindMember(frame.text).has_value(); }))
        engine.ThrowShielded(context);
    engine.CloseFrame();
    duk_push_boolean(context, found);
    return 1;
}

duk_ret_t DeleteTrap(duk_context* context) {
    duk_push_false(context);
    return 1;
}

// object(arguments): the default member.
duk_ret_t ApplyTrap(duk_context* context) {
    Engine& engine = Engine::Of(context);
    engine.Poll(context);
    const Wrapped* const wrapped = WrappedIn(context, 0);
    Frame& frame = engine.OpenFrame();
    const auto count = static_cast<duk_uarridx_t>(duk_get_length(context, 2));
    frame.values.resize(count);
    for (duk_uarridx_t i = 0; i < count; ++i) {
        duk_get_prop_index(context, 2, i);
        engine.ReadValue(context, -1, frame.values[i]);
        duk_pop(context);
    }
    if (!engine.Shielded([&] {
            frame.result = ObjectRef(wrapped->object)->Invoke(DefaultMemberId, InvokeKind::Get, frame.values);
        }))
        engine.ThrowShielded(context);
    engine.PushValue(context, frame.result);
    engine.CloseFrame();
    return 1;
}

// The target itself runs only for `new object`.
duk_ret_t Target(duk_context* context) {
    Engine::Of(context).Throw(context, numbers::ActionNotSupported);
}

duk_ret_t FinalizeTarget(duk_context* context) {
    if (Wrapped* const wrapped = WrappedIn(context, 0))
        Engine::Of(context).Forget(wrapped);
    return 0;
}

// --- what the rewriter calls ---

duk_ret_t Called(duk_context* context) {
    Engine& engine = Engine::Of(context);
    engine.Poll(context);
    engine.MarkCalled(duk_get_heapptr(context, 0));
    return 1; // the name itself
}

// The same in front of an assignment: `object.name(arguments) = value`.
duk_ret_t CalledToAssign(duk_context* context) {
    Engine& engine = Engine::Of(context);
    engine.Poll(context);
    engine.MarkCalled(duk_get_heapptr(context, 0), true);
    return 1;
}

// What `object(arguments) = value` calls: of anything but a late-bound object the thing itself.
duk_ret_t Indexed(duk_context* context) {
    const Wrapped* const wrapped = Engine::Of(context).WrappedByProxy(duk_get_heapptr(context, 0));
    if (wrapped == nullptr)
        return 1;
    duk_push_heapptr(context, wrapped->target);
    PushMember(context, -1, DefaultMemberId, true);
    return 1;
}

// The name under which the call just made takes the value; only members of late-bound objects take one.
duk_ret_t Assigned(duk_context* context) {
    Engine& engine = Engine::Of(context);
    if (!engine.TakeAssignable())
        engine.Throw(context, FunctionResultAssigned, "Cannot assign to a function result");
    duk_push_string(context, AssignedName);
    return 1;
}

duk_ret_t PollFunction(duk_context* context) {
    Engine& engine = Engine::Of(context);
    engine.Poll(context);
    engine.MarkCalled(nullptr); // a function of the script answered to the name that was announced
    duk_push_true(context);
    return 1;
}

// --- global members ---

duk_ret_t GetGlobalMember(duk_context* context) {
    Engine& engine = Engine::Of(context);
    duk_push_current_function(context);
    const Wrapped* const wrapped = WrappedIn(context, -1);
    duk_get_prop_string(context, -1, MemberKey);
    const MemberId member = duk_get_int(context, -1);
    duk_get_prop_string(context, -2, NameKey);
    if (engine.TakeCalled(duk_get_heapptr(context, -1))) {
        PushMember(context, -3, member, false);
        return 1;
    }
    Frame& frame = engine.OpenFrame();
    if (!engine.Shielded(
            [&] { frame.result = ObjectRef(wrapped->object)->Invoke(member, InvokeKind::Get, {}); }))
        engine.ThrowShielded(context);
    engine.PushValue(context, frame.result);
    engine.CloseFrame();
    return 1;
}

duk_ret_t SetGlobalMember(duk_context* context) {
    Engine& engine = Engine::Of(context);
    Frame& frame = engine.OpenFrame();
    engine.ReadArguments(context, frame);
    duk_push_current_function(context);
    const Wrapped* const wrapped = WrappedIn(context, -1);
    duk_get_prop_string(context, -1, MemberKey);
    const MemberId member = duk_get_int(context, -1);
    const bool succeeded = engine.Shielded([&] {
        const InvokeKind kind = frame.values[0].IsObject() ? InvokeKind::Set : InvokeKind::Let;
        ObjectRef(wrapped->object)->Invoke(member, kind, frame.values);
    });
    if (!succeeded)
        engine.ThrowShielded(context);
    engine.CloseFrame();
    return 0;
}

void PushAccessor(duk_context* context, duk_c_function function, duk_idx_t count, Wrapped& wrapped,
                  MemberId member) {
    duk_push_c_function(context, function, count);
    duk_push_pointer(context, &wrapped);
    duk_put_prop_string(context, -2, WrappedKey);
    duk_push_int(context, member);
    duk_put_prop_string(context, -2, MemberKey);
}

void PutFunction(duk_context* context, const char* name, duk_c_function function, duk_idx_t count) {
    duk_push_c_function(context, function, count);
    duk_put_prop_string(context, -2, name);
}

void DefineFixedGlobal(duk_context* context, const char* name, duk_c_function function, duk_idx_t count) {
    duk_push_global_object(context);
    duk_push_string(context, name);
    duk_push_c_function(context, function, count);
    duk_def_prop(context, -3, DUK_DEFPROP_HAVE_VALUE);
    duk_pop(context);
}

} // namespace

void InstallBridge(duk_context* context) {
    duk_push_global_stash(context);
    duk_push_object(context);
    PutFunction(context, "get", GetTrap, 3);
    PutFunction(context, "set", SetTrap, 4);
    PutFunction(context, "has", HasTrap, 2);
    PutFunction(context, "deleteProperty", DeleteTrap, 2);
    PutFunction(context, "apply", ApplyTrap, 3);
    duk_put_prop_string(context, -2, HandlerKey);
    duk_pop(context);
    DefineFixedGlobal(context, "$called", Called, 1);
    DefineFixedGlobal(context, "$poll", PollFunction, 0);
    DefineFixedGlobal(context, "$put", CalledToAssign, 1);
    DefineFixedGlobal(context, "$indexed", Indexed, 1);
    DefineFixedGlobal(context, "$assigned", Assigned, 0);
}

void PushProxyPair(duk_context* context, Wrapped& wrapped) {
    duk_push_c_function(context, Target, 0);
    duk_push_pointer(context, &wrapped);
    duk_put_prop_string(context, -2, WrappedKey);
    duk_push_c_function(context, FinalizeTarget, 1);
    duk_set_finalizer(context, -2);
    duk_dup_top(context);
    duk_push_global_stash(context);
    duk_get_prop_string(context, -1, HandlerKey);
    duk_remove(context, -2);
    duk_push_proxy(context, 0);
    duk_dup_top(context);
    duk_put_prop_string(context, -3, ProxyKey);
}

void DefineGlobalMember(Engine& engine, duk_context* context, std::string_view name, const ObjectRef& owner,
                        MemberId member) {
    duk_push_global_object(context);
    duk_push_lstring(context, name.data(), name.size());
    duk_dup_top(context);
    if (duk_has_prop(context, -3) != 0) {
        duk_pop_2(context);
        return;
    }
    // [global name proxy]: the proxy stays with the accessors and keeps the object's wrapper alive.
    engine.PushObject(context, owner);
    Wrapped* const wrapped = engine.WrappedByProxy(duk_get_heapptr(context, -1));
    duk_dup(context, -2);
    PushAccessor(context, GetGlobalMember, 0, *wrapped, member);
    duk_dup(context, -3);
    duk_put_prop_string(context, -2, ProxyKey);
    duk_dup(context, -2);
    duk_put_prop_string(context, -2, NameKey);
    PushAccessor(context, SetGlobalMember, 1, *wrapped, member);
    duk_dup(context, -4);
    duk_put_prop_string(context, -2, ProxyKey);
    duk_def_prop(context, -6,
                 DUK_DEFPROP_HAVE_GETTER | DUK_DEFPROP_HAVE_SETTER | DUK_DEFPROP_SET_CONFIGURABLE);
    duk_pop_3(context);
}

} // namespace quillon::jscript
