#include "jscript/Prelude.h"

#include "jscript/Bridge.h"
#include "jscript/RewriterWords.h"
#include "jscript/Thrown.h"
#include "platform/FailureNumbers.h"

namespace quillon::jscript {
namespace {

constexpr const char* PreludeKey = DUK_HIDDEN_SYMBOL("prelude");

std::string TextAt(Engine& engine, duk_context* context, duk_idx_t index) {
    const Value value = engine.ReadValue(context, index);
    const auto* const text = value.If<std::string>();
    return text == nullptr ? std::string() : *text;
}

// hide(object, name, value): a property that no loop over the object sees; gives the object.
duk_ret_t Hide(duk_context* context) {
    duk_def_prop(context, 0,
                 DUK_DEFPROP_HAVE_VALUE | DUK_DEFPROP_SET_WRITABLE | DUK_DEFPROP_SET_CONFIGURABLE |
                     DUK_DEFPROP_CLEAR_ENUMERABLE);
    return 1;
}

// fail(number, description)
duk_ret_t Fail(duk_context* context) {
    Engine& engine = Engine::Of(context);
    engine.Throw(context, duk_get_int(context, 0), TextAt(engine, context, 1));
}

// elements(collection): an array of what For Each would see.
duk_ret_t Elements(duk_context* context) {
    Engine& engine = Engine::Of(context);
    const Wrapped* const wrapped = engine.WrappedAt(context, 0);
    if (wrapped == nullptr)
        engine.Throw(context, numbers::NotACollection);
    const std::vector<Value> elements = engine.Shielded(context, [&] {
        const ObjectRef object = wrapped->object;
        const auto walk = object->Enumerate();
        std::vector<Value> values;
        while (auto value = walk->Next())
            values.push_back(std::move(*value));
        return values;
    });
    duk_push_array(context);
    for (std::size_t i = 0; i < elements.size(); ++i) {
        engine.PushValue(context, elements[i]);
        duk_put_prop_index(context, -2, static_cast<duk_uarridx_t>(i));
    }
    return 1;
}

// create(program identifier)
duk_ret_t Create(duk_context* context) {
    Engine& engine = Engine::Of(context);
    const std::string name = TextAt(engine, context, 0);
    return engine.Answer(context, [&] {
        ObjectRef object = engine.Factory() ? engine.Factory()(name) : ObjectRef();
        if (!object)
            throw Failure(numbers::CannotCreateObject, "Automation server can't create object");
        return Value(std::move(object));
    });
}

// become(expression, other): the one regular expression is from now on what the other is.
duk_ret_t Become(duk_context* context) {
    for (const char* const part : {DUK_INTERNAL_SYMBOL("Bytecode"), DUK_INTERNAL_SYMBOL("Source")}) {
        duk_push_string(context, part);
        duk_get_prop_string(context, 0, part);
        duk_get_prop_string(context, 1, part);
        if (duk_is_string(context, -1) == 0 || duk_is_string(context, -2) == 0)
            return duk_type_error(context, "%s", "expected RegExp");
        duk_remove(context, -2);
        duk_def_prop(context, 0, DUK_DEFPROP_HAVE_VALUE | DUK_DEFPROP_FORCE);
    }
    return 0;
}

void PutFunction(duk_context* context, const char* name, duk_c_function function, duk_idx_t count) {
    duk_push_c_function(context, function, count);
    duk_put_prop_string(context, -2, name);
}

void PushNatives(duk_context* context) {
    duk_push_object(context);
    PutFunction(context, "hide", Hide, 3);
    PutFunction(context, "fail", Fail, 2);
    PutFunction(context, "elements", Elements, 1);
    PutFunction(context, "create", Create, 1);
    PutFunction(context, "become", Become, 2);
    PutFunction(context, "thrown", Thrown, 1);
}

} // namespace

void InstallPrelude(Engine&, duk_context* context, void*) {
    InstallBridge(context);
    InstallRewriterWords(context);
    duk_push_global_stash(context);
    PushNatives(context);
    for (const std::string_view text : PreludeTexts()) {
        duk_push_lstring(context, text.data(), text.size());
        duk_push_string(context, ""); // no file name: errors in here are blamed on the script
        duk_compile(context, DUK_COMPILE_EVAL);
        duk_call(context, 0);
        duk_push_global_object(context);
        duk_dup(context, -3);
        duk_call(context, 2);
        duk_pop(context);
    }
    duk_put_prop_string(context, -2, PreludeKey);
}

void PushPreludeFunction(duk_context* context, const char* name) {
    duk_push_global_stash(context);
    duk_get_prop_string(context, -1, PreludeKey);
    duk_get_prop_string(context, -1, name);
    duk_remove(context, -2);
    duk_remove(context, -2);
}

} // namespace quillon::jscript
