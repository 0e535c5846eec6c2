// One Duktape heap and everything that crosses its border: code, values, late-bound objects, failures.
//
// Duktape reports errors by a C++ exception of its own, so destructors run. Two rules hold:
//   1. Duktape is entered through Guarded() only, so that no error goes past it.
//   2. No other exception leaves a function that Duktape calls: what the system's objects do runs in
//   Shielded(),
//      which turns a failure into a script error, and the failure comes out of Guarded() again.
#pragma once

#include <atomic>
#include <exception>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include <duktape.h>

#include "jscript/JScriptHost.h"
#include "jscript/Memory.h"
#include "jscript/Rewriter.h"
#include "jscript/Sources.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::jscript {

// A late-bound object as scripts hold it: a proxy over a target. Their blocks of memory are tagged with it;
// it goes when both have gone.
struct Wrapped {
    ObjectRef object;
    void* target = nullptr;
    void* proxy = nullptr;
};

// Tells objects that scripts made, and the system holds, whether their engine still lives.
struct EngineLink {
    Engine* engine;
};

// What the rewriter's words tell the bridge about the use of a member that follows.
class Announcement {
  public:
    // `name` is about to be called, maybe for an assignment to what it gives.
    void Call(void* name, bool toAssign) noexcept {
        m_name = name;
        m_toAssign = toAssign;
    }
    // Whether `name` was announced just now; forgets it.
    bool TakeCall(void* name) noexcept { return std::exchange(m_name, nullptr) == name && name != nullptr; }
    bool IsToAssign() const noexcept { return m_toAssign; }
    // A member has kept its arguments for the value that is assigned next; whether one has, forgotten by
    // asking.
    void NoteAssignable() noexcept { m_isAssignable = true; }
    bool TakeAssignable() noexcept { return std::exchange(m_isAssignable, false); }

  private:
    void* m_name = nullptr;
    bool m_toAssign = false, m_isAssignable = false;
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
    // Runs C++ that may fail, and that enters Duktape through Guarded() only; its failure is raised in the
    // script.
    template <class Work>
    auto Shielded(duk_context* context, Work&& work);
    // The same, and the value that it gives is what the native function returns.
    template <class Work>
    duk_ret_t Answer(duk_context* context, Work&& work) {
        PushValue(context, Shielded(context, work));
        return 1;
    }
    // Raises an error that scripts can catch. An empty description takes the number's own text.
    [[noreturn]] void Throw(duk_context* context, std::int32_t number, const std::string& description = {});
    // Ends the script if it must end; lets go of what scripts have dropped. Where script code may run.
    void Poll(duk_context* context);
    // Whether the script must end. Duktape asks too, from time to time.
    bool MustEnd() const noexcept { return !m_describing && (m_stop || m_memory.IsShort()); }
    Announcement& Announced() noexcept { return m_announcement; }
    // Where the script is while an error is thrown.
    void NotePlace(std::string file, std::int32_t line);
    const Sources& Texts() const noexcept { return m_sources; }
    const ObjectFactory& Factory() const noexcept { return m_factory; }
    // The text with the names of global members defined and announced.
    Rewritten Prepare(std::string_view text);

    // --- values; may fail in Duktape's way ---
    void PushText(duk_context* context, std::string_view text);
    void PushValue(duk_context* context, const Value& value);
    void PushObject(duk_context* context, const ObjectRef& object);
    Value ReadValue(duk_context* context, duk_idx_t index);
    // The elements of the array at `index`.
    std::vector<Value> ReadList(duk_context* context, duk_idx_t index);
    // All arguments of the running native function.
    std::vector<Value> ReadArguments(duk_context* context);
    // The late-bound object whose proxy or target is at `index`; null for anything else.
    Wrapped* WrappedAt(duk_context* context, duk_idx_t index) noexcept;

    // --- for objects that scripts made (ScriptedObject.h) ---
    using Step = void (*)(Engine& engine, duk_context* context, void* data);
    // Runs a step inside Duktape and raises the failure it ends with.
    void Guarded(Step step, void* data);
    void Forget(const void* block, std::uint32_t reference) noexcept {
        m_scripted.erase(block);
        m_releasedReferences.push_back(reference);
    }
    std::shared_ptr<EngineLink> Link() const noexcept { return m_link; }

  private:
    struct Execution;
    struct Report;

    static void* Allocate(void* engine, duk_size_t size);
    static void* Reallocate(void* engine, void* memory, duk_size_t size);
    static void Free(void* engine, void* memory);
    bool RefusesMemory(std::size_t size) noexcept;

    bool TryGuarded(Step step, void* data);
    void ReleaseDropped(duk_context* context);
    void EndEntry() noexcept;

    static void Execute(Engine& engine, duk_context* context, void* data);
    static void Call(Engine& engine, duk_context* context, void* data);
    void ExecuteText(Execution& execution, ScriptError& error);
    const ObjectRef* GlobalOwner(std::string_view name, MemberId& member);
    void DefineGlobalMembers(std::string_view text);

    static void DescribeError(Engine& engine, duk_context* context, void* data);
    [[noreturn]] void RaiseReported(ScriptError* error, bool compiling);

    void ForgetBlock(void* memory) noexcept;
    void PushDate(duk_context* context, DateValue date);
    void PushArray(duk_context* context, const ArrayValue& array);
    Value ReadObject(duk_context* context, duk_idx_t index);
    bool ReadArray(duk_context* context, duk_idx_t index, Value& value);
    bool ReadDate(duk_context* context, duk_idx_t index, Value& value);
    Value ReadScripted(duk_context* context, duk_idx_t index);

    const ObjectFactory& m_factory;
    Memory m_memory;
    duk_context* m_context = nullptr;
    std::shared_ptr<EngineLink> m_link;
    std::atomic<bool> m_stop = false;
    std::size_t m_unheeded = 0; // memory asked for since the script was told to stop
    int m_refusals = 0;
    int m_depth = 0;
    bool m_describing = false;

    std::unordered_map<Object*, std::unique_ptr<Wrapped>> m_wrapped;
    std::vector<ObjectRef> m_dropped;                    // by scripts; let go of where script code may run
    std::unordered_map<const void*, Object*> m_scripted; // by scripts' objects: what the system holds of them
    std::vector<std::uint32_t> m_releasedReferences;
    std::uint32_t m_nextReference = 1;
    std::vector<ObjectRef> m_globalObjects; // whose members are global names
    Sources m_sources;
    Announcement m_announcement;
    std::string m_thrownFile;
    std::int32_t m_thrownLine = 0;
    std::exception_ptr m_foreign; // what is no Failure goes through to the host's caller
    std::unique_ptr<Report> m_report;
};

template <class Work>
auto Engine::Shielded(duk_context* context, Work&& work) {
    try {
        return work();
    } catch (const Failure& failure) {
        Throw(context, failure.number(), failure.description());
    } catch (...) {
        m_foreign = std::current_exception();
        m_stop = true; // nothing may catch it on its way out
    }
    Throw(context, numbers::ScriptStopped);
}

} // namespace quillon::jscript
