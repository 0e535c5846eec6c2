// Operands that are more than plain contents of a variable.

#include "platform/FailureNumbers.h"
#include "vbscript/machine/Array.h"
#include "vbscript/machine/Elements.h"
#include "vbscript/machine/Machine.h"

namespace quillon::vbscript {

// The name of a variable, for messages.
NameId Machine::NameOf(Operand operand) const {
    const std::size_t place = operand & PlaceMask;
    const Frame& frame = m_frames.back();
    switch (SpaceOf(operand)) {
    case Space::Global: return m_globals.NameAt(static_cast<std::uint16_t>(place));
    case Space::Register: return place < frame.code->locals.size() ? frame.code->locals[place].first : NoName;
    default: return NoName;
    }
}

const Variant& Machine::Read(Operand operand) {
    static const Variant empty;
    const Variant* value = &At(operand);
    const bool isLent = value->kind() == Kind::Reference;
    if (isLent)
        value = value->Target();
    switch (value->kind()) {
    case Kind::Constant: return *static_cast<const Variant*>(value->Pointer());
    case Kind::Unset:
        if (!isLent && Top().code->isExplicit)
            RaiseNamed(numbers::VariableUndefined, NameOf(operand));
        return empty;
    case Kind::Procedure:
    case Kind::Class: RaiseNamed(numbers::TypeMismatch, NameOf(operand));
    default: return *value;
    }
}

Variant& Machine::Target(Operand operand) {
    Variant* variable = &At(operand);
    const bool isLent = variable->kind() == Kind::Reference;
    if (isLent)
        variable = variable->Target();
    switch (variable->kind()) {
    case Kind::Constant:
    case Kind::Procedure:
    case Kind::Class: RaiseNamed(numbers::IllegalAssignment, NameOf(operand));
    case Kind::Unset:
        if (!isLent && Top().code->isExplicit)
            RaiseNamed(numbers::VariableUndefined, NameOf(operand));
        return *variable;
    default: return *variable;
    }
}

// For the results of operators, which are no objects.
void Machine::Store(Operand operand, Variant value) {
    Variant& variable = Target(operand);
    if (variable.IsArray())
        AssignVariable(variable, std::move(value), false);
    else
        variable.Swap(value);
}

LiteralSides Machine::LiteralsOf(Step at) const noexcept {
    return {SpaceOf(at->b) == Space::Constant, SpaceOf(at->c) == Space::Constant};
}

} // namespace quillon::vbscript
