#include "jscript/Bridge.h"

#include "jscript/LateBound.h"
#include "jscript/Members.h"
#include "platform/FailureNumbers.h"

namespace quillon::jscript {
namespace {

// A key that scripts cannot spell.
constexpr const char* HandlerKey = DUK_HIDDEN_SYMBOL("handler");

// --- traps; the target is the first argument ---

ObjectRef ObjectOf(duk_context* context) {
    return Engine::Of(context).WrappedAt(context, 0)->object;
}

// A name; what is no text, a symbol say, is empty and so no member's.
std::string NameAt(Engine& engine, duk_context* context, duk_idx_t index) {
    const Value name = engine.ReadValue(context, index);
    const auto* const text = name.If<std::string>();
    return text == nullptr ? std::string() : *text;
}

// toString and valueOf: what the object stands for where text or a number is wanted.
duk_ret_t Conversion(duk_context* context) {
    Engine& engine = Engine::Of(context);
    duk_push_this(context);
    const Wrapped* const wrapped = engine.WrappedAt(context, -1);
    if (wrapped == nullptr)
        engine.Throw(context, numbers::ObjectRequired);
    return engine.Answer(context, [&] { return PlainValue(wrapped->object); });
}

duk_ret_t GetUnknown(Engine& engine, duk_context* context, std::string_view name, bool called) {
    if (name == "toString" || name == "valueOf") {
        duk_push_c_function(context, Conversion, 0);
        return 1;
    }
    if (called)
        engine.Throw(context, numbers::MemberNotSupported);
    duk_push_undefined(context);
    return 1;
}

duk_ret_t GetTrap(duk_context* context) {
    Engine& engine = Engine::Of(context);
    engine.Poll(context);
    const bool called = engine.Announced().TakeCall(duk_get_heapptr(context, 1));
    const bool assigned = called && engine.Announced().IsToAssign();
    const std::string name = NameAt(engine, context, 1);
    const ObjectRef object = ObjectOf(context);
    const auto member = engine.Shielded(context, [&] { return object->FindMember(name); });
    if (!member || name.empty())
        return GetUnknown(engine, context, name, called);
    std::optional<Value> value;
    if (!called)
        value = engine.Shielded(context, [&] { return ReadAlone(object, *member); });
    if (value)
        engine.PushValue(context, *value);
    else
        PushMember(context, 0, *member, assigned);
    return 1;
}

duk_ret_t SetTrap(duk_context* context) {
    Engine& engine = Engine::Of(context);
    engine.Poll(context);
    const std::string name = NameAt(engine, context, 1);
    const ObjectRef object = ObjectOf(context);
    Value value = engine.ReadValue(context, 2);
    return engine.Answer(context, [&] {
        WriteMember(object, MemberNamed(object, name), {&value, 1});
        return Value(true);
    });
}

duk_ret_t HasTrap(duk_context* context) {
    Engine& engine = Engine::Of(context);
    const std::string name = NameAt(engine, context, 1);
    const ObjectRef object = ObjectOf(context);
    return engine.Answer(context, [&] { return Value(object->FindMember(name).has_value()); });
}

duk_ret_t DeleteTrap(duk_context* context) {
    duk_push_false(context);
    return 1;
}

// Whether the last of the arguments at `index` says that a value follows (RewriterWords.h): scripts have no
// other pointers.
bool AwaitValue(duk_context* context, duk_idx_t index) {
    const auto count = static_cast<duk_uarridx_t>(duk_get_length(context, index));
    if (count == 0)
        return false;
    duk_get_prop_index(context, index, count - 1);
    const bool awaits = duk_is_pointer(context, -1) != 0;
    duk_pop(context);
    return awaits;
}

// object(arguments) = value, where the object came out of a member of a script's own.
duk_ret_t ApplyForValue(duk_context* context) {
    const auto count = static_cast<duk_idx_t>(duk_get_length(context, 2));
    duk_require_stack(context, count + 8);
    PushMember(context, 0, DefaultMemberId, true);
    for (duk_idx_t i = 0; i < count; ++i)
        duk_get_prop_index(context, 2, static_cast<duk_uarridx_t>(i));
    duk_call(context, count);
    return 1;
}

// object(arguments): the default member.
duk_ret_t ApplyTrap(duk_context* context) {
    Engine& engine = Engine::Of(context);
    engine.Poll(context);
    if (AwaitValue(context, 2))
        return ApplyForValue(context);
    const ObjectRef object = ObjectOf(context);
    std::vector<Value> arguments = engine.ReadList(context, 2);
    return engine.Answer(context, [&] { return ReadMember(object, DefaultMemberId, arguments); });
}

// The target itself runs only for `new object`.
duk_ret_t Target(duk_context* context) {
    Engine::Of(context).Throw(context, numbers::ActionNotSupported);
}

void PutFunction(duk_context* context, const char* name, duk_c_function function, duk_idx_t count) {
    duk_push_c_function(context, function, count);
    duk_put_prop_string(context, -2, name);
}

// Ties the object on top to what it stands for; gives its place in memory.
void* Tag(duk_context* context, Wrapped& wrapped) {
    void* const block = duk_get_heapptr(context, -1);
    Memory::TagOf(block) = &wrapped;
    return block;
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
}

void PushNewProxy(duk_context* context, Wrapped& wrapped) {
    duk_push_c_function(context, Target, 0);
    wrapped.target = Tag(context, wrapped);
    duk_push_global_stash(context);
    duk_get_prop_string(context, -1, HandlerKey);
    duk_remove(context, -2);
    duk_push_proxy(context, 0);
    wrapped.proxy = Tag(context, wrapped);
}

} // namespace quillon::jscript
