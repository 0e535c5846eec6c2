#include "adapters/script/ScriptControl.h"

#include <algorithm>

#include "jscript/JScriptHost.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "vbscript/VbScriptHost.h"
#include "vbscript/machine/Builtin.h"
#include "vbscript/machine/ScriptObject.h"

namespace quillon::adapters {
namespace {

constexpr std::int32_t InvalidPropertyValue = 380;

bool SameName(std::string_view left, std::string_view right) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; };
    return std::ranges::equal(left, right, {}, lower, lower);
}

// JScript shares VBScript's dictionary; its regular expressions are its own. The registry frees those that
// hold one another.
ObjectRef CreateForJScript(std::string_view programId, vbscript::ObjectRegistry& registry) {
    constexpr std::string_view dictionary = "Scripting.Dictionary";
    if (!SameName(programId, dictionary))
        return {};
    const auto objects = vbscript::CreatableObjects();
    struct Current {
        vbscript::ObjectRegistry* before;
        ~Current() { vbscript::ObjectRegistry::SetCurrent(before); }
    };
    const Current current{vbscript::ObjectRegistry::SetCurrent(&registry)};
    return std::ranges::find(objects, dictionary, &vbscript::CreatableObject::programId)->create();
}

} // namespace

ScriptControl::ScriptControl(ScriptSite* site)
    : m_site(site)
    , m_borrowed(std::make_unique<vbscript::ObjectRegistry>()) {}

ScriptControl::~ScriptControl() = default;

ScriptHost& ScriptControl::Engine() const {
    if (m_engine == nullptr)
        throw Failure(numbers::InvalidCall, "The language of the script is not set");
    return *m_engine;
}

std::unique_ptr<ScriptHost> ScriptControl::EngineFor(const std::string& language) {
    if (language == "JScript")
        return std::make_unique<jscript::JScriptHost>(
            [this](std::string_view programId) { return CreateForJScript(programId, *m_borrowed); });
    auto engine = std::make_unique<vbscript::VbScriptHost>(m_site);
    engine->SetLanguage(language);
    return engine;
}

void ScriptControl::Reset() {
    if (m_running != 0)
        throw Failure(numbers::InvalidCall);
    if (m_engine != nullptr)
        m_engine->Reset();
    m_borrowed->DropAll();
    m_error = {};
}

void ScriptControl::SetLanguage(std::string_view name) {
    const bool isVBScript = SameName(name, "VBScript");
    if (!isVBScript && !SameName(name, "JScript"))
        throw Failure(InvalidPropertyValue, "Invalid property value");
    std::string language = isVBScript ? "VBScript" : "JScript";
    if (language == m_language)
        return;
    if (m_running != 0)
        throw Failure(numbers::InvalidCall);
    auto engine = EngineFor(language);
    const std::scoped_lock lock(m_engineChange);
    m_engine = std::move(engine);
    m_borrowed->DropAll();
    m_language = std::move(language);
}

void ScriptControl::AddObject(std::string_view name, ObjectRef object, bool addMembers) {
    Engine().AddObject(name, std::move(object), addMembers);
}

// Whatever the entry ends with, Error says afterwards what the engine's says.
template <class Work>
auto ScriptControl::Entry(Work work) {
    ScriptHost& engine = Engine();
    struct Running {
        ScriptControl& control;
        ScriptHost& engine;
        ~Running() {
            --control.m_running;
            control.m_error = engine.Error();
        }
    };
    ++m_running;
    const Running running{*this, engine};
    return work(engine);
}

void ScriptControl::AddCode(std::string_view text) {
    Entry([&](ScriptHost& engine) { engine.AddCode(text); });
}

Value ScriptControl::Run(std::string_view procedure, std::span<Value> arguments) {
    return Entry([&](ScriptHost& engine) { return engine.Run(procedure, arguments); });
}

Value ScriptControl::Eval(std::string_view expression) {
    return Entry([&](ScriptHost& engine) { return engine.Eval(expression); });
}

void ScriptControl::Stop() {
    const std::scoped_lock lock(m_engineChange);
    if (m_engine != nullptr)
        m_engine->Stop();
}

} // namespace quillon::adapters
