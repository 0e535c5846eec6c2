// Frames: entering and leaving procedures.

#include "platform/FailureNumbers.h"
#include "vbscript/machine/Elements.h"
#include "vbscript/machine/Instance.h"
#include "vbscript/machine/Machine.h"

namespace quillon::vbscript {

namespace {

// A ByVal argument: the variable's value, arrays as a copy that may change its size.
Variant CopiedArgument(const Variant& reference) {
    Variant value = Referred(reference);
    return value.IsArray() ? AssignedValue(std::move(value)) : value;
}

} // namespace

void Machine::SetSpaces() noexcept {
    m_spaces[2] = m_globals.Variables();
    if (m_frames.empty()) {
        m_spaces[0] = m_registers;
        return;
    }
    Frame& frame = m_frames.back();
    m_spaces[0] = frame.registers;
    m_spaces[1] = const_cast<Variant*>(frame.code->constants.data());
    m_spaces[3] = frame.fields;
}

void Machine::ClearRegisters(Variant* first, Variant* end) noexcept {
    for (; first != end; ++first)
        first->Reset();
}

// The registers from `registers` on, with the arguments in them, become the procedure's. Those that still
// belong to the caller are let go of; those behind are raw memory.
Machine::Step Machine::Enter(const Code& code, Variant* registers, std::size_t arguments, ObjectRef me,
                             bool wantsResult) {
    if (arguments != code.parameterCount)
        RaiseNamed(numbers::WrongArgumentCount, code.name);
    Variant* const callersEnd = m_frames.empty() ? m_registers : m_frames.back().end;
    Variant* const end = registers + code.registers;
    if (m_frames.size() >= MostFrames || end >= m_registers + RegisterCount)
        throw Failure(numbers::OutOfStackSpace);
    CountStep();
    Variant* place = registers + arguments;
    for (Variant* const shared = std::min(end, callersEnd); place < shared; ++place)
        place->Reset();
    for (place = std::max(place, callersEnd); place < end; ++place)
        new (place) Variant();
    if (code.valueCount != 0)
        for (std::size_t i = 0; i < arguments; ++i)
            if (code.byValue[i] && registers[i].kind() == Kind::Reference)
                registers[i] = CopiedArgument(registers[i]);
    if (!m_frames.empty())
        m_frames.back().at = m_at;
    Variant* const fields = me ? static_cast<Instance*>(me.get())->Fields() : nullptr;
    m_frames.push_back({&code, nullptr, registers, std::max(end, callersEnd), fields, std::move(me), nullptr,
                        wantsResult, false, false});
    SetSpaces();
    if (!code.freeNames.empty())
        BindFreeNames(code, registers);
    return code.instructions.data();
}

// An undeclared name is the global variable if there is one now, and a variable of the procedure otherwise.
void Machine::BindFreeNames(const Code& code, Variant* registers) {
    if (code.isSnippet)
        return;
    for (const FreeName& name : code.freeNames) {
        Variant& global = m_globals[name.global];
        switch (global.kind()) {
        case Kind::Unset:
            if (code.isExplicit && !name.isDeclared)
                registers[name.place] = Variant::Internal(Kind::Unset, nullptr);
            break;
        case Kind::Procedure:
        case Kind::Class:
        case Kind::Constant: registers[name.place] = global; break;
        default: registers[name.place] = Variant::ReferenceTo(&global);
        }
    }
}

// Lets go of the top frame's registers and of the frame. Releases may run script code: above this frame, and
// once it is gone, above its caller, which then stands at its call again.
void Machine::Leave() noexcept {
    Variant* const registers = m_frames.back().registers;
    ClearRegisters(registers, registers + m_frames.back().code->registers);
    const ObjectRef me = std::move(m_frames.back().me);
    const std::unique_ptr<FrameExtras> extras = std::move(m_frames.back().extras);
    m_frames.pop_back();
    if (!m_frames.empty())
        m_at = m_frames.back().at;
    SetSpaces();
}

// Null when the frame that was entered from outside returns.
Machine::Step Machine::Return() {
    Frame& frame = m_frames.back();
    Variant* const registers = frame.registers;
    const bool wantsResult = frame.wantsResult, isBoundary = frame.isBoundary;
    Variant result;
    if (wantsResult && frame.code->result >= 0)
        result = std::move(registers[frame.code->result]);
    Leave();
    if (isBoundary) {
        new (registers) Variant(std::move(result));
        return nullptr;
    }
    registers->Swap(result);
    return m_at + 1;
}

} // namespace quillon::vbscript
