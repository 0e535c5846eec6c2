// A compiled regular expression: instructions for the matcher, and the sets of characters they name.
//
// Made by: RegExpCompiler. Run by: RegExpMatcher. The instructions work on registers: two for every group
// (start and end of what it matched), and some for counted repetitions and look-aheads.
#pragma once

#include <bitset>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "vbscript/machine/Heap.h"

namespace quillon::vbscript::regexp {

// A set of UTF-16 code units.
class CharacterSet {
  public:
    void Add(char16_t first, char16_t last);
    void Add(const CharacterSet& other);
    void AddAllBut(const CharacterSet& other);
    void Invert() noexcept { m_inverted = !m_inverted; }
    // Without regard to case a character is in the set if it is in either case; the inversion comes after
    // that.
    bool Contains(char16_t c, bool ignoreCase) const noexcept {
        const bool listed = Lists(c) || (ignoreCase && ListsOtherCase(c));
        return listed != m_inverted;
    }

  private:
    bool Lists(char16_t c) const noexcept { return c < 256 ? m_low[c] : ListsHigh(c); }
    bool ListsHigh(char16_t c) const noexcept;
    bool ListsOtherCase(char16_t c) const noexcept;

    std::bitset<256> m_low;
    std::vector<std::pair<char16_t, char16_t>> m_high;
    bool m_inverted = false;
};

enum class Operation : std::uint8_t {
    Character, // `a`: the character (folded if case does not matter)
    AnyButNewline,
    Set,        // `a`: index of the set
    SpanGreedy, // the one-character instruction that follows, `a` to `b` times, as often as it goes
    SpanLazy,   // likewise, as seldom as it goes
    LineStart,
    LineEnd,
    WordEdge,
    NotWordEdge,
    GroupAgain,  // `a`: group; what it matched once more
    Save,        // `a`: register that takes the position
    Split,       // tries `a` first, then `b`
    Jump,        // to `a`
    RepeatBegin, // `a`: index of the repetition
    RepeatNext,  // `a`: index of the repetition, `b`: where to go on behind it
    LookBegin,   // `a`: register of the look-ahead, `b`: where a look-ahead that must fail goes on
    LookEnd,     // `a`: register, `b`: 1 for a look-ahead that must fail
    Match,
};

struct Instruction {
    Operation operation;
    std::int32_t a = 0, b = 0;
};

// A repetition of more than one character; its count and the place where its last round began are registers.
struct Repetition {
    std::int32_t minimum, maximum; // maximum: Unlimited for no end
    bool lazy;
    std::int32_t countRegister;
};

inline constexpr std::int32_t Unlimited = 0x7FFFFFFF;

struct Program {
    HeapVector<Instruction> code;
    HeapVector<CharacterSet> sets;
    HeapVector<Repetition> repetitions;
    std::int32_t groups = 0; // not counting the whole match
    std::int32_t registers = 2;
    bool ignoreCase = false, multiLine = false;
};

} // namespace quillon::vbscript::regexp
