// The host's operations, from the engine's side: code in, values out.
#include "jscript/Bridge.h"
#include "jscript/CompileErrors.h"
#include "jscript/EngineReport.h"
#include "jscript/GlobalMembers.h"
#include "jscript/OtherLanguage.h"
#include "jscript/Tokens.h"
#include "platform/FailureNumbers.h"

namespace quillon::jscript {
namespace {

constexpr std::int32_t ConditionalCompilation = 1030;

struct GlobalDefinition {
    std::string_view name;
    const ObjectRef* object;
};

void DefineGlobal(Engine& engine, duk_context* context, void* data) {
    const auto& definition = *static_cast<const GlobalDefinition*>(data);
    duk_push_global_object(context);
    duk_push_lstring(context, definition.name.data(), definition.name.size());
    engine.PushObject(context, *definition.object);
    duk_def_prop(context, -3,
                 DUK_DEFPROP_HAVE_VALUE | DUK_DEFPROP_SET_WRITABLE | DUK_DEFPROP_SET_CONFIGURABLE |
                     DUK_DEFPROP_SET_ENUMERABLE | DUK_DEFPROP_FORCE);
}

struct GlobalMember {
    std::string_view name;
    const ObjectRef* owner;
    MemberId member;
};

void DefineMember(Engine& engine, duk_context* context, void* data) {
    const auto& global = *static_cast<const GlobalMember*>(data);
    DefineGlobalMember(engine, context, global.name, *global.owner, global.member);
}

struct FunctionCall {
    std::string_view name;
    std::span<Value> arguments;
    Value* result;
    bool found;
};

bool Compiles(Engine& engine, duk_context* context, std::string_view text, const std::string& file,
              duk_uint_t flags) {
    engine.PushText(context, text);
    duk_push_lstring(context, file.data(), file.size());
    return duk_pcompile(context, flags) == 0;
}

} // namespace

void Engine::AddObject(std::string_view name, ObjectRef object, bool addMembers) {
    GlobalDefinition definition{name, &object};
    Guarded(DefineGlobal, &definition);
    if (addMembers)
        m_globalObjects.push_back(object);
}

const ObjectRef* Engine::GlobalOwner(std::string_view name, MemberId& member) {
    for (const ObjectRef& object : m_globalObjects) {
        if (const auto found = object->FindMember(name)) {
            member = *found;
            return &object;
        }
    }
    return nullptr;
}

// Names are looked for in the text, since the engine does not ask for those that it does not know.
void Engine::DefineGlobalMembers(std::string_view text) {
    for (const Token& token : Tokenize(text)) {
        GlobalMember global{token.text, nullptr, DefaultMemberId};
        if (token.kind == TokenKind::Word)
            global.owner = GlobalOwner(token.text, global.member);
        if (global.owner != nullptr)
            Guarded(DefineMember, &global);
    }
}

Rewritten Engine::Prepare(std::string_view text) {
    if (m_globalObjects.empty())
        return Rewrite(text);
    DefineGlobalMembers(text);
    return Rewrite(text, [this](std::string_view name) {
        MemberId member = DefaultMemberId;
        return GlobalOwner(name, member) != nullptr;
    });
}

void Engine::Execute(Engine& engine, duk_context* context, void* data) {
    auto& execution = *static_cast<Execution*>(data);
    const duk_uint_t flags = execution.isExpression ? DUK_COMPILE_EVAL : 0;
    if (execution.rewritten->conditional) {
        execution.complaint = {*execution.rewritten->conditional, {}};
        engine.NotePlace(execution.file, 0);
        engine.Throw(context, ConditionalCompilation, "Conditional compilation is turned off");
    }
    if (!Compiles(engine, context, execution.rewritten->text, execution.file, flags)) {
        // The complaint must be about the text as it was written; and should the rewriter be at fault, that
        // text runs.
        duk_pop(context);
        engine.m_sources.SetLines(execution.file, {});
        if (!Compiles(engine, context, execution.original, execution.file, flags)) {
            execution.complaint = ComplaintAbout(context, execution.original, flags);
            duk_throw(context);
        }
    }
    execution.compiled = true;
    duk_call(context, 0);
    if (execution.isExpression)
        execution.result = engine.ReadValue(context, -1);
}

void Engine::ExecuteText(Execution& execution, ScriptError& error) {
    Rewritten script = Prepare(execution.original);
    m_sources.SetLines(execution.file, std::move(script.lines));
    execution.rewritten = &script;
    if (TryGuarded(Execute, &execution))
        return;
    if (!execution.compiled) {
        m_report->place = execution.complaint.place;
        if (execution.complaint.error.number != 0) {
            m_report->number = execution.complaint.error.number;
            m_report->description = execution.complaint.error.description;
        }
        if (LooksLikeVBScript(execution.original))
            m_report->description = "Syntax error: the text looks like VBScript, but the language is JScript";
    }
    RaiseReported(&error, !execution.compiled);
}

void Engine::AddCode(std::string_view text, ScriptError& error) {
    Execution execution;
    execution.original = text;
    execution.file = m_sources.AddCode(text);
    ExecuteText(execution, error);
}

Value Engine::Eval(std::string_view expression, ScriptError& error) {
    Execution execution;
    execution.original = expression;
    execution.file = m_sources.SetExpression(expression);
    execution.isExpression = true;
    ExecuteText(execution, error);
    return std::move(execution.result);
}

void Engine::Call(Engine& engine, duk_context* context, void* data) {
    auto& call = *static_cast<FunctionCall*>(data);
    duk_push_global_object(context);
    duk_push_lstring(context, call.name.data(), call.name.size());
    duk_get_prop(context, -2);
    call.found = duk_is_function(context, -1) != 0 && engine.WrappedAt(context, -1) == nullptr;
    if (!call.found)
        return;
    duk_require_stack(context, static_cast<duk_idx_t>(call.arguments.size()) + 8);
    for (const Value& argument : call.arguments)
        engine.PushValue(context, argument);
    duk_call(context, static_cast<duk_idx_t>(call.arguments.size()));
    *call.result = engine.ReadValue(context, -1);
}

bool Engine::Run(std::string_view procedure, std::span<Value> arguments, Value& result, ScriptError& error) {
    FunctionCall call{procedure, arguments, &result, false};
    if (!TryGuarded(Call, &call))
        RaiseReported(&error, false);
    return call.found;
}

} // namespace quillon::jscript
