#include "jscript/Prelude.h"

#include <cstdlib>

#include "jscript/Bridge.h"
#include "jscript/Encoding.h"
#include "jscript/Errors.h"
#include "platform/FailureNumbers.h"

namespace quillon::jscript {
namespace {

constexpr const char* PreludeKey = DUK_HIDDEN_SYMBOL("prelude");

// `native` has the functions below; what the prelude adds to it is for the engine.
constexpr std::string_view Source = R"js(
(function (global, native) {
    function hide(object, name, value) {
        Object.defineProperty(object, name, { value: value, writable: true, configurable: true });
        return object;
    }
    var slice = Array.prototype.slice, hasOwn = Object.prototype.hasOwnProperty;

    var NativeError = Error;
    function derive(name, place) {
        Object.defineProperty(NativeError.prototype, name, {
            configurable: true,
            get: function () { return native.known(String(this.name), String(this.message))[place]; },
            set: function (value) { hide(this, name, value); }
        });
    }
    derive('number', 0);
    derive('description', 1);
    function numbered(Constructor) {
        function Numbered(number, text) {
            if (typeof number !== 'number')
                return number === undefined ? new Constructor() : new Constructor(number);
            var error = text === undefined ? new Constructor() : new Constructor(text);
            hide(error, 'number', number);
            return hide(error, 'description', text === undefined ? '' : String(text));
        }
        Numbered.prototype = Constructor.prototype;
        hide(Numbered.prototype, 'constructor', Numbered);
        return Numbered;
    }
    ['Error', 'EvalError', 'RangeError', 'ReferenceError', 'SyntaxError', 'TypeError', 'URIError'].forEach(
        function (name) { hide(global, name, numbered(global[name])); });

    function Enumerator(collection) {
        hide(this, '$collection', collection);
        this.moveFirst();
    }
    Enumerator.prototype.atEnd = function () { return this.$at >= this.$items.length; };
    Enumerator.prototype.item = function () { return this.$items[this.$at]; };
    Enumerator.prototype.moveNext = function () { this.$at++; };
    Enumerator.prototype.moveFirst = function () {
        var collection = this.$collection;
        hide(this, '$items', Array.isArray(collection) ? slice.call(collection)
            : collection === undefined ? [] : native.elements(collection));
        hide(this, '$at', 0);
    };
    hide(global, 'Enumerator', Enumerator);

    function VBArray(array) {
        if (!(array instanceof VBArray))
            native.fail(5013, 'VBArray expected');
        return array;
    }
    function bound(array, dimension) {
        dimension = dimension === undefined ? 1 : dimension | 0;
        if (dimension < 1 || dimension > array.$bounds.length)
            native.fail(9, '');
        return array.$bounds[dimension - 1];
    }
    VBArray.prototype.dimensions = function () { return this.$bounds.length; };
    VBArray.prototype.lbound = function (dimension) { bound(this, dimension); return 0; };
    VBArray.prototype.ubound = function (dimension) { return bound(this, dimension); };
    VBArray.prototype.toArray = function () { return this.$elements.slice(); };
    VBArray.prototype.getItem = function () {
        var place = 0;
        if (arguments.length !== this.$bounds.length)
            native.fail(9, '');
        for (var i = arguments.length - 1; i >= 0; i--) {
            var subscript = Math.floor(arguments[i]);
            if (!(subscript >= 0 && subscript <= this.$bounds[i]))
                native.fail(9, '');
            place = place * (this.$bounds[i] + 1) + subscript;
        }
        return this.$elements[place];
    };
    hide(global, 'VBArray', VBArray);
    native.makeArray = function (bounds, elements) {
        var array = Object.create(VBArray.prototype);
        hide(array, '$bounds', bounds);
        return hide(array, '$elements', elements);
    };
    native.isArray = function (value) { return value instanceof VBArray && hasOwn.call(value, '$elements'); };

    var NativeDate = Date;
    native.makeDate = function (year, month, day, hour, minute, second) {
        var date = new NativeDate(year, month, day, hour, minute, second);
        if (year < 100)
            date.setFullYear(year);
        return date;
    };
    native.dateParts = function (value) {
        if (!(value instanceof NativeDate) || isNaN(value.getTime()))
            return null;
        return [value.getFullYear(), value.getMonth(), value.getDate(), value.getHours(), value.getMinutes(),
                value.getSeconds()];
    };

    hide(global, 'ActiveXObject', function ActiveXObject(name) { return native.create(String(name)); });
    hide(global, 'GetObject', function GetObject() { native.fail(429, ''); });
    hide(global, 'ScriptEngine', function ScriptEngine() { return 'JScript'; });
    hide(global, 'ScriptEngineMajorVersion', function ScriptEngineMajorVersion() { return 5; });
    hide(global, 'ScriptEngineMinorVersion', function ScriptEngineMinorVersion() { return 8; });
    hide(global, 'ScriptEngineBuildVersion', function ScriptEngineBuildVersion() { return 0; });
    Duktape.errThrow = native.noteThrow;
    delete global.Duktape;
})
)js";

// known(class, message): [number, description].
duk_ret_t Known(duk_context* context) {
    Engine& engine = Engine::Of(context);
    Frame& frame = engine.OpenFrame();
    frame.values.resize(2);
    engine.ReadValue(context, 0, frame.values[0]);
    engine.ReadValue(context, 1, frame.values[1]);
    std::int32_t number = 0;
    const bool succeeded = engine.Shielded([&] {
        KnownError known = KnownErrorOf(frame.values[0].As<std::string>(), frame.values[1].As<std::string>());
        number = WithFacility(known.number);
        frame.result = Value(std::move(known.description));
    });
    if (!succeeded)
        engine.ThrowShielded(context);
    duk_push_array(context);
    duk_push_int(context, number);
    duk_put_prop_index(context, -2, 0);
    engine.PushValue(context, frame.result);
    duk_put_prop_index(context, -2, 1);
    engine.CloseFrame();
    return 1;
}

// fail(number, description)
duk_ret_t Fail(duk_context* context) {
    ThrowNumbered(context, duk_get_int(context, 0), duk_get_string_default(context, 1, ""));
}

// elements(collection): an array of what For Each would see.
duk_ret_t Elements(duk_context* context) {
    Engine& engine = Engine::Of(context);
    const Wrapped* const wrapped = engine.WrappedByProxy(duk_get_heapptr(context, 0));
    if (wrapped == nullptr)
        ThrowNumbered(context, numbers::NotACollection, "");
    Frame& frame = engine.OpenFrame();
    const bool succeeded = engine.Shielded([&] {
        const ObjectRef object = wrapped->object;
        const auto walk = object->Enumerate();
        while (auto value = walk->Next())
            frame.values.push_back(std::move(*value));
    });
    if (!succeeded)
        engine.ThrowShielded(context);
    duk_push_array(context);
    for (std::size_t i = 0; i < frame.values.size(); ++i) {
        engine.PushValue(context, frame.values[i]);
        duk_put_prop_index(context, -2, static_cast<duk_uarridx_t>(i));
    }
    engine.CloseFrame();
    return 1;
}

// create(program identifier)
duk_ret_t Create(duk_context* context) {
    Engine& engine = Engine::Of(context);
    Frame& frame = engine.OpenFrame();
    engine.ReadArguments(context, frame);
    const bool succeeded = engine.Shielded([&] {
        if (engine.Factory())
            frame.object = engine.Factory()(frame.values[0].As<std::string>());
        if (!frame.object)
            throw Failure(numbers::CannotCreateObject, "Automation server can't create object");
    });
    if (!succeeded)
        engine.ThrowShielded(context);
    engine.PushObject(context, frame.object);
    engine.CloseFrame();
    return 1;
}

// noteThrow(value): remembers the innermost line of script text, for errors that do not know theirs.
duk_ret_t NoteThrow(duk_context* context) {
    constexpr duk_int_t deepest = -12;
    for (duk_int_t level = -2; level >= deepest; --level) {
        duk_inspect_callstack_entry(context, level);
        if (!duk_is_object(context, -1))
            break;
        duk_get_prop_string(context, -1, "lineNumber");
        const std::int32_t line = duk_get_int(context, -1);
        duk_get_prop_string(context, -2, "function");
        duk_get_prop_string(context, -1, "fileName");
        if (const char* const file = duk_get_string(context, -1); file != nullptr && *file != '\0') {
            Engine::Of(context).NoteThrow(file, line);
            break;
        }
        duk_pop_n(context, 4);
    }
    duk_set_top(context, 1);
    return 1;
}

void PutFunction(duk_context* context, const char* name, duk_c_function function, duk_idx_t count) {
    duk_push_c_function(context, function, count);
    duk_put_prop_string(context, -2, name);
}

} // namespace

void InstallPrelude(Engine&, duk_context* context, void*) {
    InstallBridge(context);
    duk_push_lstring(context, Source.data(), Source.size());
    duk_push_string(context, ""); // no file name: errors in here are blamed on the script
    duk_compile(context, DUK_COMPILE_EVAL);
    duk_call(context, 0);
    duk_push_global_object(context);
    duk_push_object(context);
    PutFunction(context, "known", Known, 2);
    PutFunction(context, "fail", Fail, 2);
    PutFunction(context, "elements", Elements, 1);
    PutFunction(context, "create", Create, 1);
    PutFunction(context, "noteThrow", NoteThrow, 1);
    duk_push_global_stash(context);
    duk_dup(context, -2);
    duk_put_prop_string(context, -2, PreludeKey);
    duk_pop(context);
    duk_call(context, 2);
}

void PushPreludeFunction(duk_context* context, const char* name) {
    duk_push_global_stash(context);
    duk_get_prop_string(context, -1, PreludeKey);
    duk_get_prop_string(context, -1, name);
    duk_remove(context, -2);
    duk_remove(context, -2);
}

void ThrowNumbered(duk_context* context, std::int32_t number, const char* description) {
    // The table's texts are literals, so each ends in a zero.
    const std::string_view known = FailureText(number);
    const char* const own = known.empty() ? "Unknown runtime error" : known.data();
    duk_push_error_object_raw(context, DUK_ERR_ERROR, nullptr, 0, "%s",
                              *description == '\0' ? own : description);
    duk_push_int(context, WithFacility(number));
    duk_put_prop_string(context, -2, "number");
    duk_get_prop_string(context, -1, "message");
    duk_put_prop_string(context, -2, "description");
    duk_throw_raw(context);
    std::abort(); // not reached; the header does not say so
}

} // namespace quillon::jscript
