#include "jscript/Members.h"

#include "jscript/LateBound.h"
#include "platform/FailureNumbers.h"

namespace quillon::jscript {
namespace {

// Keys that scripts cannot spell.
constexpr const char* ProxyKey = DUK_HIDDEN_SYMBOL("proxy");
constexpr const char* MemberKey = DUK_HIDDEN_SYMBOL("member");
constexpr const char* ArgumentsKey = DUK_HIDDEN_SYMBOL("arguments");

// What the running function carries.
struct Carried {
    ObjectRef object;
    MemberId member;
};

Carried CarriedHere(duk_context* context) {
    duk_push_current_function(context);
    duk_get_prop_string(context, -1, ProxyKey);
    duk_get_prop_string(context, -2, MemberKey);
    Carried carried{Engine::Of(context).WrappedAt(context, -2)->object, duk_get_int(context, -1)};
    duk_pop_3(context);
    return carried;
}

void PushCarrier(duk_context* context, duk_idx_t owner, MemberId member, duk_c_function function,
                 duk_idx_t arguments) {
    const Wrapped* const wrapped = Engine::Of(context).WrappedAt(context, owner);
    duk_push_c_function(context, function, arguments);
    duk_push_heapptr(context, wrapped->proxy);
    duk_put_prop_string(context, -2, ProxyKey);
    duk_push_int(context, member);
    duk_put_prop_string(context, -2, MemberKey);
}

duk_ret_t CallMember(duk_context* context) {
    Engine& engine = Engine::Of(context);
    engine.Poll(context);
    std::vector<Value> arguments = engine.ReadArguments(context);
    const Carried carried = CarriedHere(context);
    return engine.Answer(context, [&] { return ReadMember(carried.object, carried.member, arguments); });
}

// A getter, which is told the name: before a call of that name the member waits for the arguments.
duk_ret_t ReadCarried(duk_context* context) {
    Engine& engine = Engine::Of(context);
    engine.Poll(context);
    const Carried carried = CarriedHere(context);
    if (!engine.Announced().TakeCall(duk_get_heapptr(context, 0)))
        return engine.Answer(context, [&] { return ReadMember(carried.object, carried.member, {}); });
    duk_push_current_function(context);
    duk_get_prop_string(context, -1, ProxyKey);
    PushMember(context, -1, carried.member, false);
    return 1;
}

std::vector<Value> ArgumentsHere(duk_context* context) {
    duk_push_current_function(context);
    duk_get_prop_string(context, -1, ArgumentsKey);
    std::vector<Value> arguments = Engine::Of(context).ReadList(context, -1);
    duk_pop_2(context);
    return arguments;
}

// A getter with the arguments that were kept before.
duk_ret_t ReadKept(duk_context* context) {
    Engine& engine = Engine::Of(context);
    engine.Poll(context);
    const Carried carried = CarriedHere(context);
    std::vector<Value> arguments = ArgumentsHere(context);
    return engine.Answer(context, [&] { return ReadMember(carried.object, carried.member, arguments); });
}

// A setter; its argument follows those that were kept before.
duk_ret_t WriteCarried(duk_context* context) {
    Engine& engine = Engine::Of(context);
    engine.Poll(context);
    const Carried carried = CarriedHere(context);
    std::vector<Value> arguments = ArgumentsHere(context);
    arguments.push_back(engine.ReadValue(context, 0));
    engine.Shielded(context, [&] { WriteMember(carried.object, carried.member, arguments); });
    return 0;
}

// Keeps the arguments in an object whose one property reads and sets the member. The last argument only says
// that a value follows.
duk_ret_t KeepArguments(duk_context* context) {
    Engine& engine = Engine::Of(context);
    duk_pop(context);
    const duk_idx_t count = duk_get_top(context);
    duk_push_array(context);
    for (duk_idx_t i = 0; i < count; ++i) {
        duk_dup(context, i);
        duk_put_prop_index(context, count, static_cast<duk_uarridx_t>(i));
    }
    duk_push_current_function(context);
    duk_get_prop_string(context, -1, MemberKey);
    const MemberId member = duk_get_int(context, -1);
    duk_get_prop_string(context, -2, ProxyKey);
    const duk_idx_t owner = duk_get_top_index(context);
    const auto pushAccessor = [&](duk_c_function accessor, duk_idx_t arguments) {
        PushCarrier(context, owner, member, accessor, arguments);
        duk_dup(context, count);
        duk_put_prop_string(context, -2, ArgumentsKey);
    };
    duk_push_object(context);
    duk_push_string(context, AssignedName);
    pushAccessor(ReadKept, 0);
    pushAccessor(WriteCarried, 1);
    duk_def_prop(context, -4, DUK_DEFPROP_HAVE_GETTER | DUK_DEFPROP_HAVE_SETTER);
    engine.Announced().NoteAssignable();
    return 1;
}

} // namespace

void PushMember(duk_context* context, duk_idx_t owner, MemberId member, bool assigned) {
    PushCarrier(context, owner, member, assigned ? KeepArguments : CallMember, DUK_VARARGS);
}

void PushSetter(duk_context* context, duk_idx_t owner, MemberId member) {
    PushCarrier(context, owner, member, WriteCarried, 1);
}

void PushGetter(duk_context* context, duk_idx_t owner, MemberId member) {
    PushCarrier(context, owner, member, ReadCarried, 1);
}

} // namespace quillon::jscript
