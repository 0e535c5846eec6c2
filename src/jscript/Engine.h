// One Duktape heap and everything that crosses its border: code, values, late-bound objects, failures.
//
// Duktape reports errors by longjmp, which skips destructors. Three rules keep that harmless, and every
// function that takes a duk_context must follow them:
//   1. Duktape is entered through Guarded() only, so that no error goes past it.
//   2. Between a call into Duktape that may fail and its return no local variable needs a destructor. What
//   does
//      lives in a Frame, which the engine owns and drops when the entry ends.
//   3. No C++ exception leaves a function that Duktape calls. Shielded() turns it into a script error, and
//   the
//      failure comes out of Guarded() again.
#pragma once

#include <atomic>
#include <deque>
#include <exception>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include <duktape.h>

#include "jscript/JScriptHost.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::jscript {

// What a native function works with while Duktape may jump over it.
struct Frame {
    std::vector<Value> values;
    Value result;
    ObjectRef object;
    std::string text;
};

// A late-bound object as scripts hold it: a proxy over a target that carries it. Target and proxy hold each
// other, so that both live until the target's finalizer runs.
struct Wrapped {
    ObjectRef object;
    void* target = nullptr;
    void* proxy = nullptr;
};

// Tells objects that scripts made, and the system holds, whether their engine still lives.
struct EngineLink {
    Engine* engine;
};

class Engine {
  public:
    Engine(const ObjectFactory& factory, std::size_t memoryLimit);
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;
    ~Engine();

    // --- the host's operations; failures leave as Failure, with the details in `error` ---
    void AddObject(std::string_view name, ObjectRef object, bool addMembers);
    void AddCode(std::string_view text, ScriptError& error);
    // False if there is no such function.
    bool Run(std::string_view procedure, std::span<Value> arguments, Value& result, ScriptError& error);
    Value Eval(std::string_view expression, ScriptError& error);
    void Stop() noexcept { m_stop = true; }
    bool IsRunning() const noexcept { return m_depth > 0; }

    // --- for the functions that Duktape calls ---
    static Engine& Of(duk_context* context);
    Frame& OpenFrame();
    void CloseFrame() noexcept { m_frames.pop_back(); }
    // Runs C++ that may throw; false if it did. Then ThrowShielded raises it in the script.
    template <class Body>
    bool Shielded(Body&& body) noexcept;
    [[noreturn]] void ThrowShielded(duk_context* context);
    // Raises an error that scripts can catch. An empty description takes the number's own text.
    [[noreturn]] void Throw(duk_context* context, std::int32_t number, const char* description = "");
    // Ends the script if it was told to stop, and fails it when its memory is used up.
    void Poll(duk_context* context) {
        if (m_stop || m_memoryShort)
            EndOrGoOn(context);
    }

    // --- values; may fail in Duktape's way ---
    void PushValue(duk_context* context, const Value& value);
    void PushObject(duk_context* context, const ObjectRef& object);
    void ReadValue(duk_context* context, duk_idx_t index, Value& value);
    // All arguments of the running native function, into the frame's values.
    void ReadArguments(duk_context* context, Frame& frame);

    // --- the bridge's bookkeeping ---
    Wrapped* WrappedByProxy(void* proxy) noexcept;
    void Forget(Wrapped* wrapped) noexcept; // its target is being finalized
    void MarkCalled(void* name, bool toAssign = false) noexcept {
        m_called = name;
        m_calledToAssign = toAssign;
    }
    bool IsCalledToAssign() const noexcept { return m_calledToAssign; }
    // A member has kept its arguments for the value that is assigned next; whether one has, forgotten by
    // asking.
    void NoteAssignable() noexcept { m_isAssignable = true; }
    bool TakeAssignable() noexcept { return std::exchange(m_isAssignable, false); }
    // Whether `name` was announced by $called just now; forgets it.
    bool TakeCalled(void* name) noexcept {
        return std::exchange(m_called, nullptr) == name && name != nullptr;
    }
    void NoteThrow(const char* file, std::int32_t line);
    const ObjectFactory& Factory() const noexcept { return m_factory; }
    // The number of the failure that Shielded caught last.
    std::int32_t ShieldedNumber() const noexcept { return m_failure->number(); }
    // The object among those whose members are global that has a member of this name.
    const ObjectRef* GlobalOwner(std::string_view name, MemberId& member);

    // --- for objects that scripts made (ScriptedObject.h) ---
    using Step = void (*)(Engine& engine, duk_context* context, void* data);
    // Runs a step inside Duktape and raises the failure it ends with.
    void Guarded(Step step, void* data);
    void ReleaseReference(std::uint32_t reference) noexcept { m_releasedReferences.push_back(reference); }
    std::shared_ptr<EngineLink> Link() const noexcept { return m_link; }

  private:
    struct Execution;
    struct Report;

    static void* Allocate(void* engine, duk_size_t size);
    static void* Reallocate(void* engine, void* memory, duk_size_t size);
    static void Free(void* engine, void* memory);
    bool HasRoomFor(std::size_t bytes) noexcept;
    void EndOrGoOn(duk_context* context);

    static void Execute(Engine& engine, duk_context* context, void* data);
    static void Call(Engine& engine, duk_context* context, void* data);
    static void DescribeError(Engine& engine, duk_context* context, void* data);
    static void DropReferences(Engine& engine, duk_context* context, void* data);
    bool TryGuarded(Step step, void* data);
    [[noreturn]] void RaiseReported(ScriptError* error, bool compiling);
    void ExecuteText(Execution& execution, ScriptError& error);
    void DefineGlobalMembers(std::string_view text);
    void EndEntry() noexcept;
    std::string LineOf(const std::string& file, std::int32_t line) const;

    void WrapNew(duk_context* context, Wrapped& wrapped);
    void PushText(duk_context* context, std::string_view text);
    void PushDate(duk_context* context, DateValue date);
    void PushArray(duk_context* context, const ArrayValue& array);
    void ReadObject(duk_context* context, duk_idx_t index, Value& value);
    bool ReadArray(duk_context* context, duk_idx_t index, Value& value);
    bool ReadDate(duk_context* context, duk_idx_t index, Value& value);
    void ReadScripted(duk_context* context, duk_idx_t index, Value& value);

    const ObjectFactory& m_factory;
    std::size_t m_memoryLimit, m_memoryUsed = 0;
    duk_context* m_context = nullptr;
    std::shared_ptr<EngineLink> m_link;
    std::atomic<bool> m_stop = false;
    bool m_memoryShort = false; // the limit was crossed
    int m_depth = 0;

    std::deque<Frame> m_frames; // a frame stays in place while others come and go behind it
    std::unordered_map<Object*, std::unique_ptr<Wrapped>> m_wrapped;
    std::unordered_map<void*, Wrapped*> m_byProxy;
    std::vector<ObjectRef> m_releasedObjects; // let go of when the entry ends
    std::vector<std::uint32_t> m_releasedReferences;
    std::uint32_t m_nextReference = 1;
    std::vector<ObjectRef> m_globalObjects; // whose members are global names
    std::vector<std::string> m_sources;     // by number; "code3" is m_sources[3]
    std::string m_expression;               // what Eval got last
    std::string m_scratch;
    void* m_called = nullptr;
    bool m_calledToAssign = false;
    bool m_isAssignable = false;
    std::string m_thrownFile;
    std::int32_t m_thrownLine = 0;
    std::unique_ptr<Failure> m_failure; // what Shielded caught
    std::exception_ptr m_foreign;       // what is no Failure goes through to the host's caller
    std::unique_ptr<Report> m_report;
};

template <class Body>
bool Engine::Shielded(Body&& body) noexcept {
    try {
        body();
        return true;
    } catch (const Failure& failure) {
        m_failure = std::make_unique<Failure>(failure);
    } catch (...) {
        m_foreign = std::current_exception();
        m_stop = true; // nothing may catch it on its way out
        m_failure = std::make_unique<Failure>(numbers::ScriptStopped);
    }
    return false;
}

} // namespace quillon::jscript
