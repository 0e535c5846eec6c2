#include "jscript/Engine.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "jscript/EngineReport.h"
#include "jscript/Prelude.h"
#include "jscript/ScriptedObject.h"
#include "platform/FailureNumbers.h"

// Duktape asks this every few thousand instructions, and within regular expressions.
extern "C" int quillon_script_must_end(void* engine) {
    return static_cast<quillon::jscript::Engine*>(engine)->MustEnd() ? 1 : 0;
}

namespace quillon::jscript {
namespace {

// Guarded() leaves nothing for this handler but a broken heap, with which nobody may go on.
[[noreturn]] void BrokenHeap(void*, const char* message) {
    std::fprintf(stderr, "script heap broken: %s\n", message == nullptr ? "" : message);
    std::abort();
}

// What duk_safe_call hands through: the step and the engine it runs in.
struct StepCall {
    Engine* engine;
    Engine::Step step;
    void* data;
};

duk_ret_t RunStep(duk_context* context, void* data) {
    const auto& call = *static_cast<StepCall*>(data);
    call.step(*call.engine, context, call.data);
    return 0;
}

} // namespace

// A built-in function that works on for long runs no instructions, but it asks for memory. It is refused
// until it gives up, and then gets what its error takes.
bool Engine::RefusesMemory(std::size_t size) noexcept {
    constexpr std::size_t patience = 100'000, small = 256;
    constexpr int refusals = 3;
    if (!m_stop || m_describing)
        return false;
    m_unheeded += 1 + size / small;
    if (m_refusals == 0 && m_unheeded <= patience)
        return false;
    m_unheeded = 0;
    m_refusals = (m_refusals + 1) % refusals;
    return true;
}

void* Engine::Allocate(void* engine, duk_size_t size) {
    auto& self = *static_cast<Engine*>(engine);
    return self.RefusesMemory(size) ? nullptr : self.m_memory.Allocate(size);
}

void* Engine::Reallocate(void* engine, void* memory, duk_size_t size) {
    auto& self = *static_cast<Engine*>(engine);
    return size != 0 && self.RefusesMemory(size) ? nullptr : self.m_memory.Reallocate(memory, size);
}

void Engine::Free(void* engine, void* memory) {
    auto& self = *static_cast<Engine*>(engine);
    if (memory != nullptr && Memory::TagOf(memory) != nullptr)
        self.ForgetBlock(memory);
    self.m_memory.Free(memory);
}

Engine::Engine(const ObjectFactory& factory, std::size_t memoryLimit)
    : m_factory(factory)
    , m_memory(memoryLimit)
    , m_link(std::make_shared<EngineLink>(EngineLink{this}))
    , m_report(std::make_unique<Report>()) {
    m_context = duk_create_heap(Allocate, Reallocate, Free, this, BrokenHeap);
    if (m_context == nullptr)
        throw Failure(numbers::OutOfMemory);
    Guarded(InstallPrelude, nullptr);
}

Engine::~Engine() {
    m_link->engine = nullptr;
    duk_destroy_heap(m_context); // tagged blocks still use the members
}

Engine& Engine::Of(duk_context* context) {
    duk_memory_functions functions;
    duk_get_memory_functions(context, &functions);
    return *static_cast<Engine*>(functions.udata);
}

void Engine::Poll(duk_context* context) {
    if (MustEnd())
        Throw(context, m_stop ? numbers::ScriptStopped : numbers::OutOfMemory);
    if (!m_dropped.empty() || !m_releasedReferences.empty())
        ReleaseDropped(context);
}

// What the released objects do as they go may drop more.
void Engine::ReleaseDropped(duk_context* context) {
    const std::vector<ObjectRef> objects = std::exchange(m_dropped, {});
    for (const std::uint32_t reference : std::exchange(m_releasedReferences, {}))
        ScriptedObject::Drop(context, reference);
}

bool Engine::TryGuarded(Step step, void* data) {
    const duk_idx_t top = duk_get_top(m_context);
    if (m_depth++ == 0) {
        m_stop = false;
        m_unheeded = 0;
        m_memory.BeginScript();
    }
    StepCall call{this, step, data};
    const bool succeeded = duk_safe_call(m_context, RunStep, &call, 0, 1) == DUK_EXEC_SUCCESS;
    if (!succeeded) {
        *m_report = Report();
        // The error lies on top. A second one while it is described leaves the report as far as it got.
        StepCall describe{this, DescribeError, m_report.get()};
        const bool describing = std::exchange(m_describing, true);
        duk_safe_call(m_context, RunStep, &describe, 0, 1);
        m_describing = describing;
    }
    duk_set_top(m_context, top);
    if (m_depth == 1)
        EndEntry();
    --m_depth;
    // An exception that is no failure of the script's goes on even if the script caught what stood for it.
    return succeeded && !m_foreign;
}

void Engine::Guarded(Step step, void* data) {
    if (!TryGuarded(step, data))
        RaiseReported(nullptr, false);
}

void Engine::EndEntry() noexcept {
    m_announcement = {};
    StepCall release{
        this, [](Engine& engine, duk_context* context, void*) { engine.ReleaseDropped(context); }, nullptr};
    duk_safe_call(m_context, RunStep, &release, 0, 1);
    duk_pop(m_context);
}

} // namespace quillon::jscript
