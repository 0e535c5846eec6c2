// Runs a compiled regular expression over a text, by backtracking on a stack of its own: a pattern can
// neither exhaust the process's stack nor run for ever.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "vbscript/builtins/RegExpProgram.h"

namespace quillon::vbscript::regexp {

// Both must outlive the matcher.
class Matcher {
  public:
    Matcher(const Program& program, std::u16string_view text);

    // The first match that begins at or after `from`. Raises 5 when the searches of this matcher take more
    // steps than any honest pattern needs, 7 when it has to remember more ways back than memory is given to
    // it.
    bool Find(std::size_t from);

    // --- of the last match found ---
    struct Span {
        std::int32_t start = -1, end = -1; // -1: the group took no part
        bool Matched() const noexcept { return start >= 0 && end >= start; }
    };
    Span Group(std::int32_t group) const noexcept { // 0 is the whole match
        const auto place = static_cast<std::size_t>(group) * 2;
        return {m_registers[place], m_registers[place + 1]};
    }

  private:
    // A way back: an alternative to try, one more round of a lazy repetition, a register to restore, or a
    // span that can give one character more or less.
    enum class Way : std::uint8_t { Alternative, Round, Register, Shrink, Grow };
    struct Entry {
        Way way;
        std::int32_t target; // where to go on; the register
        std::int32_t position;
        std::int32_t limit; // of a span; the register's old value; the repetition's counter
    };

    bool Run(std::int32_t start);
    bool Backtrack();
    void Push(Entry entry);
    void Set(std::int32_t index, std::int32_t value);
    std::int32_t& Register(std::int32_t index) { return m_registers[static_cast<std::size_t>(index)]; }

    bool Accepts(const Instruction& instruction, char16_t c) const;
    bool TakeSpan(const Instruction& span);
    bool TakeGroupAgain(std::int32_t group);
    bool NextRound(const Instruction& next);
    void BeginRound(std::int32_t counter);
    bool EndLookAhead(const Instruction& end);
    bool AtLineStart() const;
    bool AtLineEnd() const;
    bool AtWordEdge() const;
    bool Step(const Instruction& instruction);
    void Spend(std::uint64_t steps) noexcept { m_steps -= std::min(m_steps, steps); }
    void Report();

    const Program& m_program;
    std::u16string_view m_text;
    std::int32_t m_end;
    std::vector<std::int32_t> m_registers;
    std::vector<Entry> m_ways;
    std::int32_t m_position = 0, m_next = 0;
    std::uint64_t m_steps;      // left for all searches of this matcher
    std::uint64_t m_nextReport; // how many are left when the work is told of next
};

} // namespace quillon::vbscript::regexp
