#include "vbscript/machine/CodeWriter.h"

#include "platform/FailureNumbers.h"

namespace quillon::vbscript {

void CodeWriter::FailTooLarge() const {
    throw CompileFailure(numbers::CompileOutOfMemory, m_place);
}

std::size_t CodeWriter::Emit(Op op, unsigned a, unsigned b, unsigned c) {
    m_code.instructions.push_back(
        {op, static_cast<std::uint16_t>(a), static_cast<std::uint16_t>(b), static_cast<std::uint16_t>(c)});
    return m_code.instructions.size() - 1;
}

void CodeWriter::EmitWord(std::uint32_t word, unsigned c) {
    Emit(Op::Jump, 0, 0, c);
    m_code.instructions.back().SetWord(word);
}

void CodeWriter::EmitJump(Op op, Label& label, unsigned a, unsigned b, unsigned c) {
    Emit(op, a, b, c);
    label.uses.push_back(Here());
    EmitWord(0);
    if (label.target >= 0)
        Aim(Here() - 1, label.target);
}

void CodeWriter::Bind(Label& label) {
    label.target = static_cast<std::int64_t>(Here());
    for (const std::size_t use : label.uses)
        Aim(use, label.target);
}

// The word at `use` becomes the distance from the jump before it.
void CodeWriter::Aim(std::size_t use, std::int64_t target) {
    const std::int64_t distance = target - (static_cast<std::int64_t>(use) - 1);
    m_code.instructions[use].SetWord(static_cast<std::uint32_t>(static_cast<std::int32_t>(distance)));
}

Operand CodeWriter::Constant(const Variant& value) {
    std::size_t place = m_code.constants.size();
    if (value.IsText()) {
        place = m_texts.try_emplace(std::u16string(value.View()), place).first->second;
    } else {
        const double number = value.IsWhole() ? static_cast<double>(value.Number())
                              : value.kind() == Kind::Double || value.kind() == Kind::Date ? value.Real()
                                                                                           : 0;
        place = m_numbers.try_emplace({value.kind(), number}, place).first->second;
    }
    if (place == m_code.constants.size())
        m_code.constants.push_back(value);
    if (place < SpaceSize)
        return MakeOperand(Space::Constant, place);
    const std::uint16_t target = TakeRegister();
    Emit(Op::LoadConstant, target);
    EmitWord(static_cast<std::uint32_t>(place));
    return target;
}

Operand CodeWriter::ConstantOf(const LiteralExpression& literal) {
    switch (literal.literal) {
    case LiteralKind::Empty: return Constant({});
    case LiteralKind::Null: return Constant(NullValue{});
    case LiteralKind::Nothing: return Constant(ObjectRef());
    case LiteralKind::True: return Constant(true);
    case LiteralKind::False: return Constant(false);
    case LiteralKind::Integer: return Constant(static_cast<std::int16_t>(literal.number));
    case LiteralKind::Long: return Constant(static_cast<std::int32_t>(literal.number));
    case LiteralKind::Double: return Constant(literal.number);
    case LiteralKind::Date: return Constant(DateValue{literal.number});
    case LiteralKind::String: return Constant(literal.text);
    }
    return 0;
}

// Very long code has no site left for each of its places: from then on those of one name share one.
std::uint16_t CodeWriter::SiteOf(NameId name, std::size_t arguments, CallSite::Use use) {
    const std::size_t place = m_code.sites.size();
    if (place >= MostOwnSites) {
        const auto [found, isNew] = m_sharedSites.try_emplace({name, arguments, use}, place);
        if (!isNew)
            return static_cast<std::uint16_t>(found->second);
    }
    if (place > UINT16_MAX)
        FailTooLarge();
    m_code.sites.push_back({name, static_cast<std::uint16_t>(arguments), use});
    return static_cast<std::uint16_t>(place);
}

std::uint16_t CodeWriter::ShapeOf(const Declaration& declaration) {
    if (m_code.shapes.size() > UINT16_MAX)
        FailTooLarge();
    m_code.shapes.push_back(
        {{declaration.bounds.begin(), declaration.bounds.end()}, !declaration.bounds.empty()});
    return static_cast<std::uint16_t>(m_code.shapes.size() - 1);
}

void CodeWriter::SetFirstTemporary(std::size_t count) {
    if (count >= SpaceSize)
        FailTooLarge();
    m_firstTemporary = m_next = static_cast<std::uint16_t>(count);
    m_code.registers = static_cast<std::uint32_t>(count);
}

std::uint16_t CodeWriter::TakeRegister() {
    if (m_next + 1u >= SpaceSize)
        FailTooLarge();
    const std::uint16_t place = m_next++;
    m_code.registers = std::max<std::uint32_t>(m_code.registers, m_next);
    return place;
}

void CodeWriter::MayHoldObject(std::uint16_t place) noexcept {
    if (m_objectsEnd == 0)
        m_objectsBegin = place;
    m_objectsBegin = std::min(m_objectsBegin, place);
    m_objectsEnd = std::max<std::uint16_t>(m_objectsEnd, static_cast<std::uint16_t>(place + 1));
}

void CodeWriter::ForgetObjectIn(std::uint16_t place) noexcept {
    if (m_objectsBegin == place && m_objectsEnd == place + 1)
        m_objectsEnd = 0;
}

void CodeWriter::EmitClear() {
    if (m_objectsEnd != 0)
        Emit(Op::Clear, m_objectsBegin, m_objectsEnd);
    m_objectsEnd = 0;
}

void CodeWriter::EmitClearBut(std::uint16_t place) {
    if (m_objectsEnd != 0 && m_objectsBegin < place)
        Emit(Op::Clear, m_objectsBegin, std::min(m_objectsEnd, place));
    EmitClearFrom(place + 1u);
}

void CodeWriter::EmitClearFrom(unsigned place) {
    if (m_objectsEnd > place)
        Emit(Op::Clear, std::max<unsigned>(m_objectsBegin, place), m_objectsEnd);
    m_objectsEnd = 0;
}

std::size_t CodeWriter::BeginMark(Place place) {
    m_place = place;
    m_code.marks.push_back({static_cast<std::uint32_t>(Here()), 0, place, m_next});
    return m_code.marks.size() - 1;
}

void CodeWriter::EndMark(std::size_t mark) {
    EmitClear();
    SetResume(mark);
}

} // namespace quillon::vbscript
