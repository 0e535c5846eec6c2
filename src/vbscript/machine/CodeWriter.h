// Writes one Code: instructions, constants, jumps, statement marks, and who uses which temporary register.
//
// Temporaries are a stack: an expression leaves its result in the first register that was free when it
// began. A register that may hold an object is noted (MayHoldObject), and the statement's end lets go of it.
#pragma once

#include <map>
#include <string>
#include <tuple>
#include <unordered_map>

#include "vbscript/machine/Code.h"

namespace quillon::vbscript {

class CodeWriter {
  public:
    explicit CodeWriter(Code& code)
        : m_code(code) {}

    // A place to jump to, before or after it is known.
    struct Label {
        std::int64_t target = -1;
        std::vector<std::size_t> uses;
    };

    std::size_t Emit(Op op, unsigned a = 0, unsigned b = 0, unsigned c = 0);
    void EmitWord(std::uint32_t word, unsigned c = 0);
    void EmitJump(Op op, Label& label, unsigned a = 0, unsigned b = 0, unsigned c = 0);
    void Bind(Label& label);

    Operand Constant(const Variant& value);
    Operand ConstantOf(const LiteralExpression& literal);
    std::uint16_t SiteOf(NameId name, std::size_t arguments, CallSite::Use use = CallSite::Use::Plain);
    std::uint16_t ShapeOf(const Declaration& declaration);

    // --- registers ---
    void SetFirstTemporary(std::size_t count);
    std::uint16_t NextRegister() const noexcept { return m_next; }
    std::uint16_t TakeRegister();
    void ReleaseTo(std::uint16_t first) noexcept { m_next = first; }
    bool IsTemporary(Operand operand) const noexcept {
        return SpaceOf(operand) == Space::Register && operand >= m_firstTemporary;
    }
    void MayHoldObject(std::uint16_t place) noexcept;
    bool HasObjects() const noexcept { return m_objectsEnd != 0; }
    void ForgetObjectIn(std::uint16_t place) noexcept; // it was moved elsewhere
    void EmitClearBut(std::uint16_t place);            // of all noted registers but one
    void EmitClearFrom(unsigned place);                // of those from a place on
    void EmitClear();                                  // of all noted registers

    // --- statements ---
    std::size_t BeginMark(Place place);
    void EndMark(std::size_t mark);
    void SetResume(std::size_t mark) { m_code.marks[mark].resume = static_cast<std::uint32_t>(Here()); }

    Code& code() noexcept { return m_code; }
    Place place() const noexcept { return m_place; }
    [[noreturn]] void FailTooLarge() const;

  private:
    std::size_t Here() const noexcept { return m_code.instructions.size(); }

    void Aim(std::size_t use, std::int64_t target);

    static constexpr std::size_t MostOwnSites = 60000;

    Code& m_code;
    Place m_place{1, 0};
    std::uint16_t m_firstTemporary = 0;
    std::uint16_t m_next = 0;
    std::uint16_t m_objectsBegin = 0;
    std::uint16_t m_objectsEnd = 0;
    std::unordered_map<std::u16string, std::size_t> m_texts;
    std::map<std::pair<Kind, double>, std::size_t> m_numbers;
    std::map<std::tuple<NameId, std::size_t, CallSite::Use>, std::size_t> m_sharedSites;
};

} // namespace quillon::vbscript
