#include "jscript/RewriterWords.h"

#include "jscript/Members.h"
#include "platform/FailureNumbers.h"

namespace quillon::jscript {
namespace {

constexpr std::int32_t FunctionResultAssigned = 5003;

duk_ret_t Announce(duk_context* context, bool toAssign) {
    Engine& engine = Engine::Of(context);
    engine.Poll(context);
    engine.Announced().Call(duk_get_heapptr(context, 0), toAssign);
    return 1; // the name itself
}

duk_ret_t Called(duk_context* context) {
    return Announce(context, false);
}

duk_ret_t Put(duk_context* context) {
    return Announce(context, true);
}

duk_ret_t Enter(duk_context* context) {
    Engine& engine = Engine::Of(context);
    engine.Poll(context);
    engine.Announced() = {};
    return 0;
}

// Of anything but a late-bound object the thing itself.
duk_ret_t Indexed(duk_context* context) {
    if (Engine::Of(context).WrappedAt(context, 0) != nullptr)
        PushMember(context, 0, DefaultMemberId, true);
    return 1;
}

// The name under which the call just made takes the value; only members of late-bound objects take one.
duk_ret_t Assigned(duk_context* context) {
    Engine& engine = Engine::Of(context);
    if (!engine.Announced().TakeAssignable())
        engine.Throw(context, FunctionResultAssigned, "Cannot assign to a function result");
    duk_push_string(context, AssignedName);
    return 1;
}

const char* TypeName(duk_context* context, duk_idx_t index) {
    switch (duk_get_type(context, index)) {
    case DUK_TYPE_UNDEFINED: return "undefined";
    case DUK_TYPE_BOOLEAN: return "boolean";
    case DUK_TYPE_NUMBER: return "number";
    case DUK_TYPE_STRING: return "string";
    default: return duk_is_function(context, index) != 0 ? "function" : "object";
    }
}

duk_ret_t Typeof(duk_context* context) {
    const bool isLateBound = Engine::Of(context).WrappedAt(context, 0) != nullptr;
    duk_push_string(context, isLateBound ? "object" : TypeName(context, 0));
    return 1;
}

// Rewrites text that is about to become code; anything else is left alone.
duk_ret_t Script(duk_context* context) {
    Engine& engine = Engine::Of(context);
    engine.Poll(context);
    const Value text = engine.ReadValue(context, 0);
    if (const auto* const script = text.If<std::string>())
        engine.PushText(context, engine.Shielded(context, [&] { return engine.Prepare(*script).text; }));
    else
        duk_dup(context, 0);
    return 1;
}

// What lies on top becomes a global name.
void DefineFixedGlobal(duk_context* context, const char* name) {
    duk_push_global_object(context);
    duk_push_string(context, name);
    duk_dup(context, -3);
    duk_def_prop(context, -3,
                 DUK_DEFPROP_HAVE_VALUE | DUK_DEFPROP_CLEAR_WRITABLE | DUK_DEFPROP_CLEAR_ENUMERABLE |
                     DUK_DEFPROP_CLEAR_CONFIGURABLE);
    duk_pop_2(context);
}

void DefineFixedGlobal(duk_context* context, const char* name, duk_c_function function) {
    duk_push_c_function(context, function, 1);
    DefineFixedGlobal(context, name);
}

} // namespace

void InstallRewriterWords(duk_context* context) {
    DefineFixedGlobal(context, "$called", Called);
    DefineFixedGlobal(context, "$put", Put);
    DefineFixedGlobal(context, "$enter", Enter);
    DefineFixedGlobal(context, "$indexed", Indexed);
    DefineFixedGlobal(context, "$assigned", Assigned);
    DefineFixedGlobal(context, "$typeof", Typeof);
    DefineFixedGlobal(context, "$script", Script);
    duk_push_pointer(context, nullptr);
    DefineFixedGlobal(context, "$value");
}

} // namespace quillon::jscript
