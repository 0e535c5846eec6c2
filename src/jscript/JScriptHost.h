// The script host for JScript: ECMAScript code on the embedded Duktape engine, with late-bound objects.
//
// What scripts see of such objects: members without regard to case, collections called as functions
// (`Tables(1)`), parameterless properties as values, methods, default members where text or a number is
// wanted, `new Enumerator(collection)`, `new VBArray(array)`, `new ActiveXObject("Scripting.Dictionary")`.
// They reach no file, process or network.
//
// Errors know their line and a column: a compile error's is that of the token at fault, a run-time error's
// that of the statement, or of the first word of its line where the statement began on an earlier one.
//
// Stop() ends a script wherever it is within moments: in its own code, in code made by eval and new Function,
// in a regular expression, in a long call of a built-in. Memory is limited; recursion ends with 28.
//
// Limits. A regular expression takes at most 10,000 rounds of a repeated group (28). Strict mode is ignored,
// as this language has none; conditional compilation is refused (1030). `++object.Item(1)` is an illegal
// assignment (5008), while `object.Item(1)++` and `+= 1` read and write; so is `f(1)(2) = 3`, a value for
// what a call gives. A function has no `caller` and no `arguments` of its own, and its text is not kept.
#pragma once

#include <functional>
#include <memory>

#include "platform/Object.h"
#include "platform/ScriptHost.h"

namespace quillon::jscript {

// Makes the object that a program identifier names; an empty reference if there is none.
using ObjectFactory = std::function<ObjectRef(std::string_view programId)>;

class Engine;

// ScriptHost says what the operations do; this host's language is "JScript" from the start and cannot be
// changed. Not thread-safe but for Stop, which any thread may call.
class JScriptHost final : public ScriptHost {
  public:
    static constexpr std::size_t DefaultMemory = std::size_t{512} << 20;

    // Scripts that take more than `memoryLimit` bytes fail with 7.
    explicit JScriptHost(ObjectFactory factory = {}, std::size_t memoryLimit = DefaultMemory);
    ~JScriptHost() override;

    // Raises 5 while a script of this host runs.
    void Reset() override;
    std::string Language() const override { return "JScript"; }
    void SetLanguage(std::string_view name) override;
    void AddObject(std::string_view name, ObjectRef object, bool addMembers = false) override;
    void AddCode(std::string_view text) override;
    Value Run(std::string_view procedure, std::span<Value> arguments = {}) override;
    Value Eval(std::string_view expression) override;
    const ScriptError& Error() const override { return m_error; }
    void Stop() override;

  private:
    template <class Body>
    auto Entry(Body body);

    ObjectFactory m_factory;
    std::size_t m_memoryLimit;
    std::unique_ptr<Engine> m_engine;
    ScriptError m_error;
};

} // namespace quillon::jscript
