#include "jscript/Thrown.h"

#include <algorithm>

#include "jscript/Engine.h"
#include "jscript/Errors.h"
#include "jscript/Tokens.h"

namespace quillon::jscript {
namespace {

// A key that scripts cannot spell.
constexpr const char* EngineMessageKey = DUK_HIDDEN_SYMBOL("message");

constexpr std::int32_t ObjectExpected = 5007, UndefinedName = 5009;

struct Position {
    std::string file;
    std::int32_t line = 0;
};

Position InnermostPosition(Engine& engine, duk_context* context) {
    constexpr duk_int_t deepest = -64;
    const duk_idx_t top = duk_get_top(context);
    Position position;
    for (duk_int_t level = -2; level >= deepest && position.line == 0; --level) {
        duk_inspect_callstack_entry(context, level);
        if (!duk_is_object(context, -1))
            break;
        duk_get_prop_string(context, -1, "lineNumber");
        duk_get_prop_string(context, -2, "function");
        duk_get_prop_string(context, -1, "fileName");
        const char* const file = duk_get_string(context, -1);
        if (file != nullptr && engine.Texts().Knows(file))
            position = {file, duk_get_int(context, -3)};
        duk_set_top(context, top);
    }
    duk_set_top(context, top);
    return position;
}

std::string TextOf(duk_context* context, const char* property) {
    duk_get_prop_string(context, 0, property);
    const Value value = Engine::Of(context).ReadValue(context, -1);
    duk_pop(context);
    const auto* const text = value.If<std::string>();
    return text == nullptr ? std::string() : *text;
}

// Whether the statement does nothing but call a name: then what is missing is called an object.
bool IsOnlyCalled(std::string_view statement, std::string_view name) {
    const std::vector<Token> tokens = Tokenize(statement);
    bool isCalled = false;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (tokens[i].text != name || (i > 0 && tokens[i - 1].text == "."))
            continue;
        if (i + 1 == tokens.size() || tokens[i + 1].text != "(" || (i > 0 && tokens[i - 1].text == "new"))
            return false;
        isCalled = true;
    }
    return isCalled;
}

void Put(Engine& engine, duk_context* context, const char* property, std::string_view text) {
    duk_push_string(context, property);
    engine.PushText(context, text);
    duk_def_prop(context, 0,
                 DUK_DEFPROP_HAVE_VALUE | DUK_DEFPROP_SET_WRITABLE | DUK_DEFPROP_SET_CONFIGURABLE |
                     DUK_DEFPROP_CLEAR_ENUMERABLE);
}

void GiveNumber(Engine& engine, duk_context* context, const Position& position) {
    KnownError known = KnownErrorOf(TextOf(context, "name"), TextOf(context, "message"));
    if (known.number == UndefinedName) {
        const auto first = known.description.find('\'') + 1;
        const std::string name = known.description.substr(first, known.description.rfind('\'') - first);
        if (IsOnlyCalled(engine.Texts().StatementAt(position.file, position.line), name))
            known = {ObjectExpected, "Object expected"};
    }
    duk_get_prop_string(context, 0, "message");
    duk_put_prop_string(context, 0, EngineMessageKey);
    Put(engine, context, "message", known.description);
    Put(engine, context, "description", known.description);
    duk_push_string(context, "number");
    duk_push_int(context, WithFacility(known.number));
    duk_def_prop(context, 0,
                 DUK_DEFPROP_HAVE_VALUE | DUK_DEFPROP_SET_WRITABLE | DUK_DEFPROP_SET_CONFIGURABLE |
                     DUK_DEFPROP_CLEAR_ENUMERABLE);
}

} // namespace

std::string EngineMessage(duk_context* context) {
    if (duk_get_prop_string(context, -1, EngineMessageKey) == 0) {
        duk_pop(context);
        duk_get_prop_string(context, -1, "message");
    }
    std::string message = duk_safe_to_string(context, -1);
    duk_pop(context);
    return message;
}

duk_ret_t Thrown(duk_context* context) {
    Engine& engine = Engine::Of(context);
    const Position position = InnermostPosition(engine, context);
    if (position.line != 0)
        engine.NotePlace(position.file, position.line);
    if (duk_is_error(context, 0) != 0 && duk_has_prop_string(context, 0, "number") == 0)
        GiveNumber(engine, context, position);
    duk_set_top(context, 1);
    return 1;
}

} // namespace quillon::jscript
