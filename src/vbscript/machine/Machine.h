// Runs compiled code: one machine an engine, with its global names, its objects and its registers.
//
// Calls between procedures of scripts push frames and do not nest in the machine; only what comes in from
// outside (a default property read by an operator, Terminate, a host object that calls back) nests, and both
// depths are limited: beyond them 28 is raised. Registers never move, so a reference to one holds for as long
// as its frame.
#pragma once

#include <atomic>
#include <list>
#include <memory>
#include <span>
#include <unordered_map>
#include <unordered_set>

#include "vbscript/machine/Compiler.h"
#include "vbscript/machine/ErrObject.h"
#include "vbscript/machine/Globals.h"
#include "vbscript/machine/Operators.h"
#include "vbscript/machine/ScriptObject.h"
#include "vbscript/source/Names.h"

namespace quillon::vbscript {

class Instance;

// A failure about something that has a name.
class NamedFailure : public Failure {
  public:
    NamedFailure(std::int32_t number, std::string named)
        : Failure(number)
        , name(std::move(named)) {}
    std::string name;
};

// A failure on its way out of the machine, with the place of the statement that raised it first.
class ScriptFailure : public Failure {
  public:
    ScriptFailure(const Failure& failure, std::string named, Place where, std::string line)
        : Failure(failure.number(), failure.description(), failure.source())
        , detail(std::move(named))
        , place(where)
        , text(std::move(line)) {}

    std::string detail; // what the message names: a variable, a member
    Place place;
    std::string text; // the source line
};

// Ends a script that was told to stop; no Resume Next holds it.
struct ScriptStopped {
    Place place; // of the statement that was running
    std::string text;
};

class Machine final : public BuiltinContext {
  public:
    Machine();
    ~Machine();
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    // --- what the host does; failures leave as ScriptFailure, CompileFailure or ScriptStopped ---
    void Reset(); // raises 5 while a script runs
    void AddObject(std::string_view name, const ObjectRef& object, bool addMembers);
    void AddCode(std::u16string_view text);
    const Code* FindProcedure(std::string_view name);
    const Code* ProcedureAt(std::uint16_t global) noexcept;
    Variant Run(const Code& procedure, std::span<Variant> arguments);
    Variant Eval(std::u16string_view expression);
    void Stop() noexcept { m_stop.store(true, std::memory_order_relaxed); }
    void SetSite(ScriptSite* site) noexcept { m_site = site; }
    bool IsRunning() const noexcept { return m_nesting != 0; }
    // Backward jumps and calls after which a script is stopped; 0: no limit.
    void SetStepLimit(std::uint64_t steps) noexcept { m_stepLimit = steps; }
    Place CurrentPlace() const noexcept; // of the statement that runs; no line outside a run

    // --- what objects of the engine need ---
    ObjectRegistry& Registry() noexcept { return m_registry; }
    const Names& AllNames() const noexcept { return m_names; }
    Variant CallCode(const Code& code, const ObjectRef& me, std::span<Variant> arguments);
    void RunTerminate(const Code& code, const ObjectRef& me) noexcept;

    // --- BuiltinContext ---
    ScriptSite* Site() noexcept override { return m_site; }
    RandomState& Random() noexcept override { return m_random; }
    void Poll() override;

  private:
    static constexpr std::size_t RegisterCount = std::size_t{1} << 18;
    static constexpr std::size_t MostFrames = 12000;
    static constexpr int MostNesting = 120;
    static constexpr std::size_t MostCachedUnits = 256;
    static constexpr std::uint32_t PollInterval = 1024;

    // Variables that Execute has made in a procedure.
    using ExtraVariables = std::unordered_map<NameId, Variant>;

    // What only frames that have to do with Execute have.
    struct FrameExtras {
        std::shared_ptr<const Unit> unit; // of a snippet, kept while it runs
        ExtraVariables variables;         // made by snippets
    };

    struct Frame {
        const Code* code;
        const Instruction* at; // the call that is under way
        Variant* registers;
        Variant* end; // registers of this frame and of those below lie before it
        Variant* fields;
        ObjectRef me;
        std::unique_ptr<FrameExtras> extras;
        bool wantsResult;
        bool resumesNext;
        bool isBoundary; // returning from it leaves the loop
    };
    using Step = const Instruction*;

    class Entry; // one entry from outside

    // --- running (Loop.cpp) ---
    void RunLoop();
    void Loop(Step at);
    Variant& At(Operand operand) noexcept { return m_spaces[operand >> SpaceShift][operand & PlaceMask]; }
    Frame& Top() noexcept { return m_frames.back(); }
    static FrameExtras& ExtrasOf(Frame& frame);

    // --- operands (Operands.cpp) ---
    const Variant& Read(Operand operand);
    Variant& Target(Operand operand);
    void Store(Operand operand, Variant value);
    LiteralSides LiteralsOf(Step at) const noexcept;
    template <class Operation>
    void Binary(Step at, Operation operation);
    using FastOperator = bool (*)(Variant&, const Variant&, const Variant&) noexcept;
    using SlowOperator = Variant (*)(const Variant&, const Variant&);
    void SlowArithmetic(Step at, FastOperator common, SlowOperator general);
    bool ComparesTrue(Step at, Comparison comparison);
    bool IsTrueFast(Step at);
    Step JumpTarget(Step at) noexcept;

    // --- frames (Frames.cpp) ---
    Step Enter(const Code& code, Variant* registers, std::size_t arguments, ObjectRef me, bool wantsResult);
    void BindFreeNames(const Code& code, Variant* registers);
    void BindSnippetNames(const Code& code, Variant* registers, Frame& parent);
    Step Return();
    void Leave() noexcept; // drops the top frame and what it holds
    void ClearRegisters(Variant* first, Variant* end) noexcept;
    void SetSpaces() noexcept;
    Variant* Base(std::uint16_t place) noexcept { return m_spaces[0] + place; }
    Variant Execute(const Code& code, std::span<Variant> arguments, ObjectRef me, bool wantsResult,
                    std::shared_ptr<const Unit> unit = nullptr);

    // --- failures (Failures.cpp) ---
    Step Recover(const Failure& failure);
    [[noreturn]] void RaiseNamed(std::int32_t number, NameId name);
    static const StatementMark& MarkOf(const Code& code, Step at) noexcept;
    ScriptFailure Placed(const Failure& failure, const Code& code, Step at);
    void Locate(ScriptStopped& stopped) const; // where it met the script
    void UnwindToBoundary() noexcept;

    // --- instructions (Calls.cpp, Members.cpp, ArrayOperations.cpp, Moves.cpp, Execution.cpp) ---
    Step DoCall(Step at, bool wantsResult);
    Step DoCallName(Step at, bool wantsResult);
    Step DoCallSelf(Step at, bool wantsResult);
    Step DoLoadName(Step at);
    Step DoRefer(Step at);
    Step DoCallBuiltin(Step at);
    Step CallValue(Step at, const Variant& callee, std::size_t arguments, NameId name, bool wantsResult);
    const Frame* FunctionOf(const Variant& callee) const noexcept;
    Step CallUnset(Step at, std::size_t arguments, NameId name, bool wantsResult);
    bool IsGlobalMember(NameId name) const { return m_members.Find(m_names.Utf8(name)).has_value(); }
    bool CallGlobalMember(Step at, std::size_t arguments, NameId name, bool isCall);
    Step DoGetMember(Step at, InvokeKind kind);
    Step DoPutMember(Step at, InvokeKind kind);
    void DoPutName(Step at, InvokeKind kind);
    Step GetFromInstance(Step at, Instance& instance, CallSite& site, bool wantsResult);
    Step PutToInstance(Step at, Instance& instance, CallSite& site, bool isSet);
    const ClassMember& MemberOf(const Instance& instance, CallSite& site);
    MemberId MemberOf(Object& object, CallSite& site);
    ObjectRef ObjectIn(Operand operand);
    Step DoIndex(Step at);
    Step DoIndexMany(Step at);
    Step IndexObject(Step at, const Variant& container, std::size_t arguments);
    void DoStoreIndex(Step at, bool isSet);
    void DoStoreMany(Step at, bool isSet);
    void DoReferElement(Step at);
    void DoReDim(Step at, bool preserve);
    void DoErase(Step at);
    void DoDimArray(Step at);
    Step DoNew(Step at);
    void DoLet(Step at, bool takes);
    void DoSet(Step at, bool takes);
    void DoJoin(Step at);
    void DoConcatenate(Step at);
    Step DoForBegin(Step at);
    Step DoForNext(Step at);
    Step DoEachNext(Step at);
    Step DoExecute(Step at);
    void DoGetReference(Step at);
    void PlainArguments(Variant* base, std::size_t count);
    void FinishNative(Variant* base, std::size_t arguments, Variant result);
    NameId NameOf(Operand operand) const;

    // --- code (Execution.cpp) ---
    std::shared_ptr<Unit> CompiledUnit(std::u16string_view text, ProgramKind kind, bool isLocal);
    void Link(const std::shared_ptr<Unit>& unit);
    void RebindFrames();
    void Forget() noexcept;

    void CountStep() {
        if (--m_untilPoll == 0)
            PollSlowly();
    }
    void PollSlowly();

    Names m_names;
    Globals m_globals;
    BuiltinNames m_builtins;
    ObjectRegistry m_registry;
    std::shared_ptr<ErrState> m_err;
    RandomState m_random;
    ScriptSite* m_site = nullptr;

    std::unique_ptr<std::byte[]> m_memory;
    Variant* m_registers;
    Variant* m_spaces[4] = {};
    std::vector<Frame> m_frames;
    Step m_at = nullptr;
    int m_nesting = 0;

    std::atomic<bool> m_stop = false;
    std::uint32_t m_untilPoll = PollInterval;
    std::uint64_t m_steps = 0;
    std::uint64_t m_stepLimit = 0;

    GlobalMembers m_members;
    std::unordered_set<NameId> m_hidden;               // names of the language that the module defines anew
    std::unordered_set<std::shared_ptr<Unit>> m_units; // that the module is made of
    struct CacheKey {
        std::u16string text;
        ProgramKind kind;
        bool isLocal;
        bool operator==(const CacheKey&) const = default;
    };
    struct CacheHash {
        std::size_t operator()(const CacheKey& key) const noexcept;
    };
    std::unordered_map<CacheKey, std::shared_ptr<Unit>, CacheHash> m_cache;
};

} // namespace quillon::vbscript
