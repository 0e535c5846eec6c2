// The host's operations, from the engine's side: code in, values out, errors described.
#include <algorithm>
#include <array>

#include "jscript/Bridge.h"
#include "jscript/Encoding.h"
#include "jscript/EngineReport.h"
#include "jscript/Errors.h"
#include "jscript/Rewriter.h"
#include "jscript/Tokens.h"
#include "platform/FailureNumbers.h"

namespace quillon::jscript {
namespace {

constexpr std::string_view CodePrefix = "code";
constexpr const char* ExpressionFile = "eval";

char Lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

// The text of a line, counted from 1.
std::string LineIn(std::string_view text, std::int32_t number) {
    for (std::int32_t line = 1;; ++line) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        if (line == number)
            return std::string(text.substr(0, end));
        if (end == text.size())
            return {};
        text.remove_prefix(end + (text.substr(end).starts_with("\r\n") ? 2 : 1));
    }
}

// Words that begin a line of the other script language and none of this one.
constexpr std::array<std::string_view, 12> ForeignWords{"dim",  "sub",  "end",  "set",   "option", "elseif",
                                                        "next", "wend", "loop", "redim", "rem",    "call"};

bool LooksLikeVBScript(std::string_view text) {
    for (std::int32_t line = 1; line <= 200; ++line) {
        std::string start = LineIn(text, line);
        start.erase(0, std::min(start.find_first_not_of(" \t"), start.size()));
        std::ranges::transform(start, start.begin(), Lowered);
        if (start.starts_with('\''))
            return true;
        for (const std::string_view word : ForeignWords) {
            if (start.starts_with(word) && start.size() > word.size() && start[word.size()] == ' ' &&
                start.find_first_of("=(;", word.size()) != word.size() + 1)
                return true;
        }
    }
    return false;
}

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

void Engine::Execute(Engine& engine, duk_context* context, void* data) {
    auto& execution = *static_cast<Execution*>(data);
    const duk_uint_t flags = execution.isExpression ? DUK_COMPILE_EVAL : 0;
    engine.PushText(context, *execution.rewritten);
    duk_push_lstring(context, execution.file.data(), execution.file.size());
    if (duk_pcompile(context, flags) != 0) {
        // The complaint must be about the text as it was written; and should the rewriter be at fault, that
        // text runs.
        duk_pop(context);
        engine.PushText(context, execution.original);
        duk_push_lstring(context, execution.file.data(), execution.file.size());
        duk_compile(context, flags);
    }
    execution.compiled = true;
    duk_call(context, 0);
    if (execution.isExpression)
        engine.ReadValue(context, -1, execution.result);
}

void Engine::ExecuteText(Execution& execution, ScriptError& error) {
    IsGlobalMember isGlobalMember;
    if (!m_globalObjects.empty()) {
        DefineGlobalMembers(execution.original);
        isGlobalMember = [this](std::string_view name) {
            MemberId member = DefaultMemberId;
            return GlobalOwner(name, member) != nullptr;
        };
    }
    const std::string script = Rewrite(execution.original, isGlobalMember);
    execution.rewritten = &script;
    if (TryGuarded(Execute, &execution))
        return;
    if (!execution.compiled && LooksLikeVBScript(execution.original))
        m_report->description = "Syntax error: the text looks like VBScript, but the language is JScript";
    RaiseReported(&error, !execution.compiled);
}

void Engine::AddCode(std::string_view text, ScriptError& error) {
    m_sources.emplace_back(text);
    Execution execution;
    execution.original = text;
    execution.file = std::string(CodePrefix) + std::to_string(m_sources.size() - 1);
    ExecuteText(execution, error);
}

Value Engine::Eval(std::string_view expression, ScriptError& error) {
    m_expression = expression;
    Execution execution;
    execution.original = expression;
    execution.file = ExpressionFile;
    execution.isExpression = true;
    ExecuteText(execution, error);
    return std::move(execution.result);
}

void Engine::Call(Engine& engine, duk_context* context, void* data) {
    auto& call = *static_cast<FunctionCall*>(data);
    duk_push_global_object(context);
    duk_push_lstring(context, call.name.data(), call.name.size());
    duk_get_prop(context, -2);
    call.found =
        duk_is_function(context, -1) != 0 && engine.WrappedByProxy(duk_get_heapptr(context, -1)) == nullptr;
    if (!call.found)
        return;
    duk_require_stack(context, static_cast<duk_idx_t>(call.arguments.size()) + 8);
    for (const Value& argument : call.arguments)
        engine.PushValue(context, argument);
    duk_call(context, static_cast<duk_idx_t>(call.arguments.size()));
    engine.ReadValue(context, -1, *call.result);
}

bool Engine::Run(std::string_view procedure, std::span<Value> arguments, Value& result, ScriptError& error) {
    FunctionCall call{procedure, arguments, &result, false};
    if (!TryGuarded(Call, &call))
        RaiseReported(&error, false);
    return call.found;
}

// --- failures ---

void Engine::NoteThrow(const char* file, std::int32_t line) {
    m_thrownFile = file;
    m_thrownLine = line;
}

namespace {

void ReadText(duk_context* context, const char* property, std::string& out) {
    duk_get_prop_string(context, -1, property);
    duk_size_t length = 0;
    if (const char* const text = duk_get_lstring(context, -1, &length))
        out = Utf8FromCesu8({text, length});
    duk_pop(context);
}

void ReadNumber(duk_context* context, const char* property, std::int32_t& out) {
    duk_get_prop_string(context, -1, property);
    if (duk_is_number(context, -1))
        out = duk_to_int32(context, -1);
    duk_pop(context);
}

} // namespace

// Reads with the error on top of the stack. What comes first matters most, should reading fail.
void Engine::DescribeError(Engine& engine, duk_context* context, void* data) {
    constexpr std::int32_t notCaught = 5022;
    Report& report = *static_cast<Report*>(data);
    report.file = engine.m_thrownFile;
    report.line = engine.m_thrownLine;
    if (!duk_is_object(context, -1)) {
        report.number = notCaught;
        report.description = "Exception thrown and not caught";
        duk_size_t length = 0;
        const char* const text = duk_safe_to_lstring(context, -1, &length);
        report.description.append(": ").append(Utf8FromCesu8({text, length}));
        return;
    }
    ReadText(context, "name", report.errorClass);
    ReadText(context, "message", report.message);
    if (duk_is_error(context, -1)) {
        ReadText(context, "fileName", report.ownFile);
        if (report.ownFile == ExpressionFile || report.ownFile.starts_with(CodePrefix)) {
            report.file = report.ownFile;
            ReadNumber(context, "lineNumber", report.line);
        }
    }
    ReadNumber(context, "number", report.number);
    ReadText(context, "description", report.description);
    if (report.number == 0 && !duk_is_error(context, -1))
        report.number = notCaught;
}

std::string Engine::LineOf(const std::string& file, std::int32_t line) const {
    if (file == ExpressionFile)
        return LineIn(m_expression, line);
    if (!file.starts_with(CodePrefix))
        return {};
    const auto index = static_cast<std::size_t>(std::strtoul(file.c_str() + CodePrefix.size(), nullptr, 10));
    return index < m_sources.size() ? LineIn(m_sources[index], line) : std::string();
}

void Engine::RaiseReported(ScriptError* error, bool compiling) {
    if (m_foreign)
        std::rethrow_exception(std::exchange(m_foreign, nullptr));
    KnownError known{WithoutFacility(m_report->number), m_report->description};
    if (known.number == 0)
        known = KnownErrorOf(m_report->errorClass, m_report->message);
    if (known.description.empty())
        known.description = m_report->message;
    std::string source =
        compiling ? "Microsoft JScript compilation error" : "Microsoft JScript runtime error";
    if (error != nullptr)
        *error = {known.number, known.description, m_report->line, 0, LineOf(m_report->file, m_report->line),
                  source};
    throw Failure(known.number, known.description, std::move(source));
}

} // namespace quillon::jscript
