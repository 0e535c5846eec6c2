#include "vbscript/machine/ProcedureReference.h"

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "vbscript/machine/Machine.h"

namespace quillon::vbscript {

const Code* ProcedureReference::Procedure() const noexcept {
    return HasEngine() ? m_machine.ProcedureAt(m_global) : nullptr;
}

Variant ProcedureReference::Access(MemberId member, InvokeKind, std::span<Variant> arguments) {
    const Code* procedure = member == DefaultMemberId ? Procedure() : nullptr;
    if (procedure == nullptr)
        throw Failure(numbers::MemberNotSupported);
    return m_machine.CallCode(*procedure, {}, arguments);
}

} // namespace quillon::vbscript
