// Entering the machine from outside, and code that comes while it runs.

#include "platform/FailureNumbers.h"
#include "vbscript/machine/Convert.h"
#include "vbscript/machine/Instance.h"
#include "vbscript/machine/Machine.h"
#include "vbscript/machine/ProcedureReference.h"
#include "vbscript/machine/Work.h"

namespace quillon::vbscript {

// Holds for as long as one entry into the machine lasts; the first one begins with no request to stop.
class Machine::Entry {
  public:
    explicit Entry(Machine& machine)
        : m_machine(machine)
        , m_at(machine.m_at)
        , m_before(ObjectRegistry::SetCurrent(&machine.m_registry))
        , m_watcherBefore(Work::SetWatcher(&machine)) {
        if (machine.m_nesting++ == 0) {
            machine.m_stop.store(false, std::memory_order_relaxed);
            machine.m_steps = 0;
            machine.m_untilPoll = PollInterval;
        }
    }
    ~Entry() {
        --m_machine.m_nesting;
        m_machine.m_at = m_at;
        ObjectRegistry::SetCurrent(m_before);
        Work::SetWatcher(m_watcherBefore);
    }
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;

  private:
    Machine& m_machine;
    Step m_at;
    ObjectRegistry* m_before;
    Work::Watcher* m_watcherBefore;
};

Machine::Machine()
    : m_builtins(m_names)
    , m_err(std::make_shared<ErrState>())
    , m_memory(std::make_unique_for_overwrite<std::byte[]>(RegisterCount * sizeof(Variant)))
    , m_registers(reinterpret_cast<Variant*>(m_memory.get())) {
    m_frames.reserve(MostFrames);
    SetSpaces();
    Reset();
}

Machine::~Machine() {
    Forget();
}

// Lets go of everything scripts hold. Terminate may run, and may leave something behind; what the host still
// holds of the scripts' objects afterwards is empty. It is one run: a request to stop ends all that is left
// of it.
void Machine::Forget() noexcept {
    const Entry entry(*this);
    m_globals.Clear();
    if (!m_members.IsEmpty())
        m_cache.clear(); // texts that were compiled for members of other objects
    m_members.Clear();
    m_registry.DropAll();
    m_globals.Clear();
}

void Machine::Reset() {
    if (IsRunning())
        throw Failure(numbers::InvalidCall);
    Forget();
    m_units.clear();
    m_hidden.clear();
    m_err->Clear();
    m_random = {};
    if (m_globals.Count() > SpaceSize / 2) { // names of texts long gone
        m_cache.clear();
        m_globals.ForgetNames();
    }
    const Entry entry(*this);
    m_globals[m_globals.PlaceOf(m_names.InternAscii("Err"))] = Variant(MakeErr(m_err));
}

Machine::FrameExtras& Machine::ExtrasOf(Frame& frame) {
    if (frame.extras == nullptr)
        frame.extras = std::make_unique<FrameExtras>();
    return *frame.extras;
}

Variant Machine::Execute(const Code& code, std::span<Variant> arguments, ObjectRef me, bool wantsResult,
                         std::shared_ptr<const Unit> unit) {
    const Entry entry(*this);
    if (m_nesting > MostNesting)
        throw Failure(numbers::OutOfStackSpace);
    Variant* const base = m_frames.empty() ? m_registers : Top().end;
    if (base + arguments.size() >= m_registers + RegisterCount)
        throw Failure(numbers::OutOfStackSpace);
    std::uninitialized_copy(arguments.begin(), arguments.end(), base);
    try {
        Enter(code, base, arguments.size(), std::move(me), wantsResult);
    } catch (...) {
        ClearRegisters(base, base + arguments.size());
        throw;
    }
    Top().isBoundary = true;
    if (unit != nullptr)
        ExtrasOf(Top()).unit = std::move(unit);
    RunLoop();
    return std::move(*base);
}

Variant Machine::CallCode(const Code& code, const ObjectRef& me, std::span<Variant> arguments) {
    return Execute(code, arguments, me, true);
}

void Machine::RunTerminate(const Code& code, const ObjectRef& me) noexcept {
    try {
        (void)Execute(code, {}, me, false);
    } catch (...) {
        // An error in Terminate ends Terminate and nothing else. A request to stop is met again at the next
        // step of what was running.
    }
}

void Machine::AddObject(std::string_view name, const ObjectRef& object, bool addMembers) {
    const NameId id = m_names.Intern(Text::FromUtf8(name).View());
    m_globals[m_globals.PlaceOf(id)] = Variant(object);
    if (m_builtins.functionsByName.contains(id))
        m_hidden.insert(id);
    if (addMembers && object) {
        m_members.Add(object);
        m_cache.clear();
    }
}

std::size_t Machine::CacheHash::operator()(const CacheKey& key) const noexcept {
    return std::hash<std::u16string>()(key.text) * 7 + static_cast<std::size_t>(key.kind) * 2 +
           (key.isLocal ? 1 : 0);
}

std::shared_ptr<Unit> Machine::CompiledUnit(std::u16string_view text, ProgramKind kind, bool isLocal) {
    CacheKey key{std::u16string(text), kind, isLocal};
    if (const auto found = m_cache.find(key); found != m_cache.end())
        return found->second;
    const std::shared_ptr<Unit> unit =
        Compile(text, kind, {m_names, m_globals, m_builtins, m_members, this, isLocal});
    if (m_cache.size() >= MostCachedUnits)
        m_cache.clear(); // what the module is made of stays in m_units
    m_cache.emplace(std::move(key), unit);
    return unit;
}

// What a text defines replaces what was defined before; its variables keep the values they have.
void Machine::Link(const std::shared_ptr<Unit>& unit) {
    const auto define = [&](std::uint16_t place, Variant meaning) {
        const NameId name = m_globals.NameAt(place);
        if (m_builtins.functionsByName.contains(name))
            m_hidden.insert(name);
        m_globals[place] = std::move(meaning);
    };
    if (unit->Defines())
        m_units.insert(unit);
    for (const auto& [place, code] : unit->procedures)
        define(place, Variant::Internal(Kind::Procedure, code.get()));
    for (const auto& [place, info] : unit->classes)
        if (!m_builtins.creatables.contains(m_globals.NameAt(place))) // New keeps making the language's own
            define(place, Variant::Internal(Kind::Class, info.get()));
    for (auto& [place, value] : unit->constants)
        define(place, Variant::Internal(Kind::Constant, &value));
    for (const std::uint16_t place : unit->variables) {
        const Kind kind = m_globals[place].kind();
        if (kind == Kind::Unset || kind == Kind::Procedure || kind == Kind::Class || kind == Kind::Constant)
            define(place, {});
    }
    for (const std::uint16_t place : unit->implied)
        if (m_globals[place].kind() == Kind::Unset)
            define(place, {});
    RebindFrames();
}

// Undeclared names of procedures that are running now mean what the text has declared.
void Machine::RebindFrames() {
    for (Frame& frame : m_frames)
        for (const FreeName& name : frame.code->freeNames) {
            Variant& variable = frame.registers[name.place];
            const Variant& global = m_globals[name.global];
            const bool isUnused = variable.IsEmpty() || variable.kind() == Kind::Unset;
            if (frame.code->isSnippet || !isUnused || global.kind() == Kind::Unset)
                continue;
            const bool isVariable = global.kind() < Kind::Procedure ||
                                    (global.kind() > Kind::Unset && global.kind() != Kind::Constant);
            variable = isVariable ? Variant::ReferenceTo(&m_globals[name.global]) : Variant(global);
        }
}

void Machine::AddCode(std::u16string_view text) {
    const std::shared_ptr<Unit> unit = CompiledUnit(text, ProgramKind::Module, false);
    Link(unit);
    (void)Execute(unit->main, {}, {}, false, unit);
}

Variant Machine::Eval(std::u16string_view expression) {
    const std::shared_ptr<Unit> unit = CompiledUnit(expression, ProgramKind::Expression, false);
    return Execute(unit->main, {}, {}, true, unit);
}

Variant Machine::Run(const Code& procedure, std::span<Variant> arguments) {
    return Execute(procedure, arguments, {}, true);
}

const Code* Machine::ProcedureAt(std::uint16_t global) noexcept {
    const Variant& named = m_globals[global];
    return named.kind() == Kind::Procedure ? static_cast<const Code*>(named.Pointer()) : nullptr;
}

const Code* Machine::FindProcedure(std::string_view name) {
    const std::optional<NameId> id = m_names.FindUtf8(name);
    const std::optional<std::uint16_t> place = id ? m_globals.Find(*id) : std::nullopt;
    return place ? ProcedureAt(*place) : nullptr;
}

Machine::Step Machine::DoExecute(Step at) {
    const auto kind = static_cast<ExecuteKind>(at->b);
    Variant* const base = Base(at->a);
    const Text text = ToText(*base);
    *base = Variant();
    const bool isExpression = kind == ExecuteKind::Expression;
    const bool isLocal = kind != ExecuteKind::Global && !Top().code->isModule;
    const ProgramKind program = isExpression ? ProgramKind::Expression
                                : isLocal    ? ProgramKind::Snippet
                                             : ProgramKind::Module;
    const std::shared_ptr<Unit> unit = CompiledUnit(text.View(), program, isLocal);
    Link(unit);
    const std::size_t parent = m_frames.size() - 1;
    const ObjectRef me = isLocal ? Top().me : ObjectRef();
    const Step first = Enter(unit->main, base, 0, me, isExpression);
    ExtrasOf(Top()).unit = unit;
    if (isLocal)
        BindSnippetNames(unit->main, Top().registers, m_frames[parent]);
    return first;
}

// The names of a text that runs within a procedure are that procedure's; what it writes to for the first
// time becomes a variable of the procedure.
void Machine::BindSnippetNames(const Code& code, Variant* registers, Frame& parent) {
    for (const FreeName& name : code.freeNames) {
        Variant* variable = nullptr;
        for (const auto& [local, place] : parent.code->locals)
            if (local == name.name)
                variable = &parent.registers[place];
        if (variable == nullptr && parent.me) {
            const ClassMember* member = static_cast<Instance*>(parent.me.get())->Class()->Find(name.name);
            if (member != nullptr && member->field >= 0)
                variable = &parent.fields[member->field];
        }
        if (variable == nullptr && parent.extras != nullptr && parent.extras->variables.contains(name.name))
            variable = &parent.extras->variables.at(name.name);
        if (variable == nullptr && m_globals[name.global].kind() != Kind::Unset)
            variable = &m_globals[name.global];
        if (variable == nullptr && name.isWritten)
            variable = &ExtrasOf(parent).variables[name.name];
        if (variable == nullptr) {
            registers[name.place] = Variant::Internal(Kind::Unset, nullptr);
            continue;
        }
        const Kind kind = variable->kind();
        const bool isMeaning = kind == Kind::Reference || kind == Kind::Procedure || kind == Kind::Class ||
                               kind == Kind::Constant || kind == Kind::Unset;
        registers[name.place] = isMeaning ? Variant(*variable) : Variant::ReferenceTo(variable);
    }
}

void Machine::DoGetReference(Step at) {
    Variant* const base = Base(at->a);
    const std::optional<NameId> name = m_names.Find(ToText(*base).View());
    const std::optional<std::uint16_t> place = name ? m_globals.Find(*name) : std::nullopt;
    if (!place || ProcedureAt(*place) == nullptr)
        throw Failure(numbers::InvalidCall);
    *base = Variant(MakeObject<ProcedureReference>(*this, *place));
}

} // namespace quillon::vbscript
