#include "vbscript/builtins/RegExpCompiler.h"

#include <algorithm>
#include <optional>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "vbscript/machine/Convert.h"

namespace quillon::vbscript::regexp {
namespace {

enum SyntaxError : std::int32_t {
    Syntax = 5017,
    UnexpectedQuantifier = 5018,
    ExpectedBracket = 5019,
    ExpectedParenthesis = 5020,
    InvalidRange = 5021,
};

[[noreturn]] void Raise(SyntaxError error) {
    switch (error) {
    case UnexpectedQuantifier: throw Failure(error, "Unexpected quantifier in regular expression");
    case ExpectedBracket: throw Failure(error, "Expected ']' in regular expression");
    case ExpectedParenthesis: throw Failure(error, "Expected ')' in regular expression");
    case InvalidRange: throw Failure(error, "Invalid range in character set");
    case Syntax: break;
    }
    throw Failure(Syntax, "Syntax error in regular expression");
}

bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

std::optional<int> HexDigit(char16_t c) {
    if (IsDigit(c))
        return c - u'0';
    const char16_t lower = static_cast<char16_t>(c | 0x20);
    return lower >= u'a' && lower <= u'f' ? std::optional(lower - u'a' + 10) : std::nullopt;
}

CharacterSet Digits() {
    CharacterSet set;
    set.Add(u'0', u'9');
    return set;
}

CharacterSet WordCharacters() {
    CharacterSet set = Digits();
    set.Add(u'a', u'z');
    set.Add(u'A', u'Z');
    set.Add(u'_', u'_');
    return set;
}

CharacterSet Blanks() {
    CharacterSet set;
    set.Add(u'\t', u'\r');
    set.Add(u' ', u' ');
    return set;
}

// The set that \d, \w, \s and their capitals name; none for another letter.
std::optional<CharacterSet> NamedSet(char16_t letter) {
    switch (letter | 0x20) {
    case u'd': return Digits();
    case u'w': return WordCharacters();
    case u's': return Blanks();
    default: return std::nullopt;
    }
}

bool IsCapital(char16_t letter) {
    return letter >= u'A' && letter <= u'Z';
}

// What one term of the pattern compiled to.
struct Term {
    std::size_t start;
    bool oneCharacter = false; // a single instruction that takes one character
    bool repeatable = true;    // ^ $ \b are not
};

struct Quantifier {
    std::int32_t minimum, maximum;
    bool lazy;
};

// Recursive over groups only, and no deeper than `deepest`.
class Compiler {
  public:
    Compiler(std::u16string_view pattern, bool ignoreCase, bool multiLine)
        : m_pattern(pattern) {
        m_program.ignoreCase = ignoreCase;
        m_program.multiLine = multiLine;
        m_groupsInAll = CountGroups();
        m_program.registers = 2 * (m_groupsInAll + 1);
    }

    Program Run() {
        Emit(Operation::Save, 0);
        Alternatives();
        if (!AtEnd())
            Raise(Syntax); // a closing bracket that nothing opened
        Emit(Operation::Save, 1);
        Emit(Operation::Match);
        m_program.groups = m_groupsInAll;
        return std::move(m_program);
    }

  private:
    static constexpr int deepest = 200;

    // --- the text ---
    bool AtEnd() const { return m_at == m_pattern.size(); }
    char16_t Peek(std::size_t ahead = 0) const {
        return m_at + ahead < m_pattern.size() ? m_pattern[m_at + ahead] : u'\0';
    }
    bool Take(char16_t c) {
        if (AtEnd() || Peek() != c)
            return false;
        ++m_at;
        return true;
    }

    // Capturing groups of the whole pattern: \2 is a reference only if there are two.
    std::int32_t CountGroups() const {
        std::int32_t count = 0;
        bool inSet = false;
        for (std::size_t i = 0; i < m_pattern.size(); ++i) {
            const char16_t c = m_pattern[i];
            if (c == u'\\')
                ++i;
            else if (c == u'[')
                inSet = true;
            else if (c == u']')
                inSet = false;
            else if (c == u'(' && !inSet && (i + 1 == m_pattern.size() || m_pattern[i + 1] != u'?'))
                ++count;
        }
        return count;
    }

    // --- the code ---
    std::size_t Here() const { return m_program.code.size(); }
    std::int32_t Target() const { return static_cast<std::int32_t>(Here()); }
    std::size_t Emit(Operation operation, std::int32_t a = 0, std::int32_t b = 0) {
        m_program.code.push_back({operation, a, b});
        return Here() - 1;
    }
    // Moves what stands at `start` and behind by one and puts an instruction there.
    void InsertAt(std::size_t start, Instruction instruction) {
        auto& code = m_program.code;
        code.insert(code.begin() + static_cast<std::ptrdiff_t>(start), instruction);
        for (std::size_t i = start + 1; i < code.size(); ++i)
            Shift(code[i], static_cast<std::int32_t>(start));
    }
    static void Shift(Instruction& instruction, std::int32_t start) {
        const auto moved = [start](std::int32_t& target) { target += target >= start ? 1 : 0; };
        switch (instruction.operation) {
        case Operation::Split: moved(instruction.a); [[fallthrough]];
        case Operation::RepeatNext:
        case Operation::LookBegin: moved(instruction.b); break;
        case Operation::Jump: moved(instruction.a); break;
        default: break;
        }
    }

    // a|b|c: every alternative but the last begins with a split and ends with a jump behind all of them.
    void Alternatives() {
        if (++m_depth > deepest)
            throw Failure(numbers::OutOfStackSpace);
        std::vector<std::size_t> jumps;
        for (;;) {
            const std::size_t start = Here();
            Sequence();
            if (!Take(u'|'))
                break;
            InsertAt(start, {Operation::Split, static_cast<std::int32_t>(start) + 1, 0});
            jumps.push_back(Emit(Operation::Jump));
            m_program.code[start].b = Target();
        }
        for (const std::size_t jump : jumps)
            m_program.code[jump].a = Target();
        --m_depth;
    }

    void Sequence() {
        while (!AtEnd() && Peek() != u'|' && Peek() != u')') {
            const Term term = OneTerm();
            if (const auto quantifier = TakeQuantifier()) {
                if (!term.repeatable)
                    Raise(UnexpectedQuantifier);
                Repeat(term, *quantifier);
            }
        }
    }

    Term OneTerm() {
        const std::size_t start = Here();
        const char16_t c = m_pattern[m_at++];
        switch (c) {
        case u'^': Emit(Operation::LineStart); return {start, false, false};
        case u'$': Emit(Operation::LineEnd); return {start, false, false};
        case u'.': Emit(Operation::AnyButNewline); return {start, true};
        case u'(': return Group(start);
        case u'[': EmitSet(BracketSet()); return {start, true};
        case u'\\': return Escape(start);
        case u'*':
        case u'+':
        case u'?': Raise(UnexpectedQuantifier);
        case u'{':
            --m_at;
            if (TakeQuantifier())
                Raise(UnexpectedQuantifier);
            ++m_at;
            break;
        default: break;
        }
        return EmitCharacter(start, c);
    }

    Term EmitCharacter(std::size_t start, char16_t c) {
        Emit(Operation::Character, m_program.ignoreCase ? UpperOf(c) : c);
        return {start, true};
    }

    void EmitSet(CharacterSet set) {
        m_program.sets.push_back(std::move(set));
        Emit(Operation::Set, static_cast<std::int32_t>(m_program.sets.size()) - 1);
    }

    Term Group(std::size_t start) {
        if (!Take(u'?')) {
            const std::int32_t group = ++m_groupsOpened;
            Emit(Operation::Save, 2 * group);
            Alternatives();
            CloseGroup();
            Emit(Operation::Save, 2 * group + 1);
        } else if (Take(u':')) {
            Alternatives();
            CloseGroup();
        } else if (Peek() == u'=' || Peek() == u'!') {
            LookAhead(m_pattern[m_at++] == u'!');
        } else {
            Raise(UnexpectedQuantifier);
        }
        return {start};
    }

    void CloseGroup() {
        if (!Take(u')'))
            Raise(ExpectedParenthesis);
    }

    void LookAhead(bool mustFail) {
        const std::int32_t first = m_program.registers;
        m_program.registers += 2;
        const std::size_t begin = Emit(Operation::LookBegin, first, 0);
        Alternatives();
        CloseGroup();
        Emit(Operation::LookEnd, first, mustFail ? 1 : 0);
        m_program.code[begin].b = mustFail ? Target() : -1;
    }

    // --- quantifiers ---
    std::optional<Quantifier> TakeQuantifier() {
        std::optional<Quantifier> quantifier;
        if (Take(u'*'))
            quantifier = {0, Unlimited, false};
        else if (Take(u'+'))
            quantifier = {1, Unlimited, false};
        else if (Take(u'?'))
            quantifier = {0, 1, false};
        else if (Peek() == u'{' && !AtEnd())
            quantifier = TakeCounts();
        if (quantifier)
            quantifier->lazy = Take(u'?');
        return quantifier;
    }

    // {n}, {n,} and {n,m}; anything else after the brace is plain text.
    std::optional<Quantifier> TakeCounts() {
        const std::size_t start = m_at++;
        Quantifier counts{0, Unlimited, false};
        const auto minimum = TakeNumber();
        bool valid = minimum.has_value();
        if (valid && Take(u',')) {
            if (Peek() != u'}')
                valid = (counts.maximum = TakeNumber().value_or(-1)) >= 0;
        } else if (valid) {
            counts.maximum = *minimum;
        }
        if (!valid || !Take(u'}')) {
            m_at = start;
            return std::nullopt;
        }
        counts.minimum = *minimum;
        if (counts.maximum < counts.minimum)
            Raise(Syntax);
        return counts;
    }

    std::optional<std::int32_t> TakeNumber() {
        if (!IsDigit(Peek()))
            return std::nullopt;
        std::int64_t number = 0;
        for (; IsDigit(Peek()); ++m_at)
            number = std::min<std::int64_t>(number * 10 + (Peek() - u'0'), Unlimited);
        return static_cast<std::int32_t>(number);
    }

    void Repeat(const Term& term, const Quantifier& quantifier) {
        const auto start = static_cast<std::int32_t>(term.start);
        if (term.oneCharacter) {
            InsertAt(term.start, {quantifier.lazy ? Operation::SpanLazy : Operation::SpanGreedy,
                                  quantifier.minimum, quantifier.maximum});
            return;
        }
        const auto index = static_cast<std::int32_t>(m_program.repetitions.size());
        m_program.repetitions.push_back(
            {quantifier.minimum, quantifier.maximum, quantifier.lazy, m_program.registers});
        m_program.registers += 2;
        InsertAt(term.start, {Operation::RepeatBegin, index});
        InsertAt(term.start + 1, {Operation::RepeatNext, index});
        Emit(Operation::Jump, start + 1);
        m_program.code[term.start + 1].b = Target();
    }

    // --- escapes ---
    Term Escape(std::size_t start) {
        if (AtEnd())
            Raise(Syntax);
        const char16_t c = Peek();
        if (c == u'b' || c == u'B') {
            ++m_at;
            Emit(c == u'b' ? Operation::WordEdge : Operation::NotWordEdge);
            return {start, false, false};
        }
        if (auto set = NamedSet(c)) {
            ++m_at;
            if (IsCapital(c))
                set->Invert();
            EmitSet(std::move(*set));
            return {start, true};
        }
        if (c >= u'1' && c <= u'9') {
            if (const std::int32_t group = TakeReference(); group != 0) {
                Emit(Operation::GroupAgain, group);
                return {start};
            }
        }
        return EmitCharacter(start, EscapedCharacter());
    }

    // The group that \n names, 0 if there are not so many; then it is an octal code or the digit itself.
    std::int32_t TakeReference() {
        const std::size_t start = m_at;
        const std::int32_t group = TakeNumber().value_or(0);
        if (group <= m_groupsInAll)
            return group;
        m_at = start;
        return 0;
    }

    char16_t EscapedCharacter() {
        const char16_t c = m_pattern[m_at++];
        switch (c) {
        case u'f': return u'\f';
        case u'n': return u'\n';
        case u'r': return u'\r';
        case u't': return u'\t';
        case u'v': return u'\v';
        case u'c':
            if ((Peek() | 0x20) >= u'a' && (Peek() | 0x20) <= u'z')
                return static_cast<char16_t>(m_pattern[m_at++] & 0x1F);
            return c;
        case u'x': return TakeHex(2).value_or(c);
        case u'u': return TakeHex(4).value_or(c);
        default: break;
        }
        if (c < u'0' || c > u'7')
            return c;
        int code = c - u'0';
        for (int more = 0; more < 2 && Peek() >= u'0' && Peek() <= u'7' && code * 8 + (Peek() - u'0') < 256;
             ++more)
            code = code * 8 + (m_pattern[m_at++] - u'0');
        return static_cast<char16_t>(code);
    }

    std::optional<char16_t> TakeHex(std::size_t count) {
        int code = 0;
        for (std::size_t i = 0; i < count; ++i) {
            const auto digit = HexDigit(Peek(i));
            if (!digit)
                return std::nullopt;
            code = code * 16 + *digit;
        }
        m_at += count;
        return static_cast<char16_t>(code);
    }

    // --- [...] ---
    CharacterSet BracketSet() {
        CharacterSet set;
        const bool inverted = Take(u'^');
        while (!Take(u']')) {
            if (AtEnd())
                Raise(ExpectedBracket);
            const auto first = SetMember(set);
            if (!first || Peek() != u'-' || m_at + 1 >= m_pattern.size() || Peek(1) == u']') {
                if (first)
                    set.Add(*first, *first);
                continue;
            }
            ++m_at;
            const auto last = SetMember(set);
            if (!last || *last < *first)
                Raise(InvalidRange);
            set.Add(*first, *last);
        }
        if (inverted)
            set.Invert();
        return set;
    }

    // One character; or none after adding a named set.
    std::optional<char16_t> SetMember(CharacterSet& set) {
        const char16_t c = m_pattern[m_at++];
        if (c != u'\\')
            return c;
        if (AtEnd())
            Raise(ExpectedBracket);
        if (const auto named = NamedSet(Peek())) {
            if (IsCapital(m_pattern[m_at++]))
                set.AddAllBut(*named);
            else
                set.Add(*named);
            return std::nullopt;
        }
        if (Take(u'b'))
            return u'\b';
        return EscapedCharacter();
    }

    std::u16string_view m_pattern;
    std::size_t m_at = 0;
    Program m_program;
    std::int32_t m_groupsInAll = 0, m_groupsOpened = 0;
    int m_depth = 0;
};

} // namespace

Program Compile(std::u16string_view pattern, bool ignoreCase, bool multiLine) {
    return Compiler(pattern, ignoreCase, multiLine).Run();
}

} // namespace quillon::vbscript::regexp
