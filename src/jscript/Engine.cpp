#include "jscript/Engine.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "jscript/EngineReport.h"
#include "jscript/Prelude.h"
#include "platform/FailureNumbers.h"

namespace quillon::jscript {
namespace {

// Before every block: how large it is, since Duktape does not say when it gives it back.
constexpr std::size_t Header = alignof(std::max_align_t);

std::size_t& SizeOf(void* memory) {
    return *reinterpret_cast<std::size_t*>(static_cast<char*>(memory) - Header);
}

// Guarded() leaves nothing for this handler but a broken heap, with which nobody may go on.
[[noreturn]] void BrokenHeap(void*, const char* message) {
    std::fprintf(stderr, "script heap broken: %s\n", message == nullptr ? "" : message);
    std::abort();
}

} // namespace

// What duk_safe_call hands through: the step and the engine it runs in.
namespace {

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

// An eighth above the limit is for the errors, and for what the host does after them.
bool Engine::HasRoomFor(std::size_t bytes) noexcept {
    m_memoryShort = m_memoryShort || m_memoryUsed + bytes > m_memoryLimit;
    const std::size_t most = m_memoryLimit + m_memoryLimit / 8;
    return m_memoryUsed <= most && bytes <= most - m_memoryUsed;
}

// A script that keeps nearly all it may have would spend its time on collecting the rest, so it fails.
void Engine::EndOrGoOn(duk_context* context) {
    if (m_stop)
        Throw(context, numbers::ScriptStopped);
    duk_gc(context, 0);
    m_memoryShort = false;
    if (m_memoryUsed > m_memoryLimit / 8 * 7)
        Throw(context, numbers::OutOfMemory);
}

void* Engine::Allocate(void* engine, duk_size_t size) {
    auto& self = *static_cast<Engine*>(engine);
    if (size == 0 || !self.HasRoomFor(size))
        return nullptr;
    void* const block = std::malloc(size + Header);
    if (block == nullptr)
        return nullptr;
    void* const memory = static_cast<char*>(block) + Header;
    SizeOf(memory) = size;
    self.m_memoryUsed += size;
    return memory;
}

void* Engine::Reallocate(void* engine, void* memory, duk_size_t size) {
    if (memory == nullptr)
        return Allocate(engine, size);
    if (size == 0) {
        Free(engine, memory);
        return nullptr;
    }
    auto& self = *static_cast<Engine*>(engine);
    const std::size_t old = SizeOf(memory);
    if (size > old && !self.HasRoomFor(size - old))
        return nullptr;
    void* const block = std::realloc(static_cast<char*>(memory) - Header, size + Header);
    if (block == nullptr)
        return nullptr;
    self.m_memoryUsed += size - old;
    void* const moved = static_cast<char*>(block) + Header;
    SizeOf(moved) = size;
    return moved;
}

void Engine::Free(void* engine, void* memory) {
    if (memory == nullptr)
        return;
    static_cast<Engine*>(engine)->m_memoryUsed -= SizeOf(memory);
    std::free(static_cast<char*>(memory) - Header);
}

Engine::Engine(const ObjectFactory& factory, std::size_t memoryLimit)
    : m_factory(factory)
    , m_memoryLimit(memoryLimit)
    , m_link(std::make_shared<EngineLink>(EngineLink{this}))
    , m_report(std::make_unique<Report>()) {
    m_context = duk_create_heap(Allocate, Reallocate, Free, this, BrokenHeap);
    if (m_context == nullptr)
        throw Failure(numbers::OutOfMemory);
    Guarded(InstallPrelude, nullptr);
}

Engine::~Engine() {
    m_link->engine = nullptr;
    duk_destroy_heap(m_context); // its finalizers still use the members
}

Engine& Engine::Of(duk_context* context) {
    duk_memory_functions functions;
    duk_get_memory_functions(context, &functions);
    return *static_cast<Engine*>(functions.udata);
}

Frame& Engine::OpenFrame() {
    return m_frames.emplace_back();
}

bool Engine::TryGuarded(Step step, void* data) {
    const std::size_t frames = m_frames.size();
    const duk_idx_t top = duk_get_top(m_context);
    if (m_depth++ == 0)
        m_stop = false;
    StepCall call{this, step, data};
    const bool succeeded = duk_safe_call(m_context, RunStep, &call, 0, 1) == DUK_EXEC_SUCCESS;
    if (!succeeded) {
        *m_report = Report();
        // The error lies on top. A second one while it is described leaves the report as far as it got.
        StepCall describe{this, DescribeError, m_report.get()};
        duk_safe_call(m_context, RunStep, &describe, 0, 1);
    }
    duk_set_top(m_context, top);
    m_frames.resize(frames);
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

// Releases are kept for here: the destructor of a released object may do anything but enter a script
// half-way.
void Engine::EndEntry() noexcept {
    m_called = nullptr;
    StepCall drop{this, DropReferences, nullptr};
    duk_safe_call(m_context, RunStep, &drop, 0, 1);
    duk_pop(m_context);
    m_releasedReferences.clear();
    const std::vector<ObjectRef> objects = std::move(m_releasedObjects);
    m_releasedObjects.clear();
}

} // namespace quillon::jscript
