#include "jscript/JScriptHost.h"

#include "jscript/Engine.h"
#include "platform/FailureNumbers.h"

namespace quillon::jscript {
namespace {

constexpr std::int32_t InvalidPropertyValue = 380;

bool IsJScript(std::string_view name) {
    constexpr std::string_view lower = "jscript";
    return std::equal(name.begin(), name.end(), lower.begin(), lower.end(),
                      [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a | 0x20 : a) == b; });
}

} // namespace

JScriptHost::JScriptHost(ObjectFactory factory, std::size_t memoryLimit)
    : m_factory(std::move(factory))
    , m_memoryLimit(memoryLimit)
    , m_engine(std::make_unique<Engine>(m_factory, memoryLimit)) {}

JScriptHost::~JScriptHost() = default;

void JScriptHost::Reset() {
    if (m_engine->IsRunning())
        throw Failure(numbers::InvalidCall);
    m_engine = std::make_unique<Engine>(m_factory, m_memoryLimit);
    m_error = {};
}

void JScriptHost::SetLanguage(std::string_view name) {
    if (!IsJScript(name))
        throw Failure(InvalidPropertyValue, "Invalid property value");
}

void JScriptHost::AddObject(std::string_view name, ObjectRef object, bool addMembers) {
    m_engine->AddObject(name, std::move(object), addMembers);
}

// A failed entry leaves its details, a successful one clears them.
template <class Body>
auto JScriptHost::Entry(Body body) {
    ScriptError error;
    try {
        auto result = body(error);
        m_error = {};
        return result;
    } catch (const Failure&) {
        m_error = std::move(error);
        throw;
    }
}

void JScriptHost::AddCode(std::string_view text) {
    Entry([&](ScriptError& error) {
        m_engine->AddCode(text, error);
        return true;
    });
}

Value JScriptHost::Run(std::string_view procedure, std::span<Value> arguments) {
    Value result;
    const bool found =
        Entry([&](ScriptError& error) { return m_engine->Run(procedure, arguments, result, error); });
    if (!found)
        throw Failure(numbers::InvalidCall);
    return result;
}

Value JScriptHost::Eval(std::string_view expression) {
    return Entry([&](ScriptError& error) { return m_engine->Eval(expression, error); });
}

void JScriptHost::Stop() {
    m_engine->Stop();
}

} // namespace quillon::jscript
