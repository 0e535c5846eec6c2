#include "vbscript/builtins/RegExpMatcher.h"

#include <algorithm>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "vbscript/machine/Convert.h"
#include "vbscript/machine/Work.h"

namespace quillon::vbscript::regexp {
namespace {

constexpr std::size_t MostWaysBack = 4'000'000; // 64 MB
constexpr std::uint64_t MostSteps = 20'000'000;
constexpr std::uint64_t MostStepsACharacter = 500;

bool IsWord(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u'_';
}

bool IsLineEnd(char16_t c) {
    return c == u'\n' || c == u'\r';
}

} // namespace

Matcher::Matcher(const Program& program, std::u16string_view text)
    : m_program(program)
    , m_text(text)
    , m_end(static_cast<std::int32_t>(text.size()))
    , m_registers(static_cast<std::size_t>(program.registers), -1)
    , m_steps(MostSteps + MostStepsACharacter * text.size())
    , m_nextReport(m_steps) {}

bool Matcher::Find(std::size_t from) {
    // A pattern that begins with a plain character can only match where that stands.
    const Instruction& first = m_program.code[1];
    const bool plain = first.operation == Operation::Character && !m_program.ignoreCase;
    const bool atStartOnly = first.operation == Operation::LineStart && !m_program.multiLine;
    for (std::size_t start = from; start <= m_text.size(); ++start) {
        if (plain) {
            start = m_text.find(static_cast<char16_t>(first.a), start);
            if (start == std::u16string_view::npos)
                return false;
        }
        if (Run(static_cast<std::int32_t>(start)))
            return true;
        if (atStartOnly)
            return false;
    }
    return false;
}

bool Matcher::Run(std::int32_t start) {
    std::ranges::fill(m_registers, -1);
    Spend(m_registers.size() / 64);
    m_ways.clear();
    m_position = start;
    m_next = 0;
    for (;;) {
        if (m_steps-- == 0)
            throw Failure(numbers::InvalidCall, "Regular expression takes too long to match");
        if (m_steps < m_nextReport)
            Report();
        const Instruction& instruction = m_program.code[static_cast<std::size_t>(m_next)];
        if (instruction.operation == Operation::Match)
            return true;
        ++m_next;
        if (!Step(instruction) && !Backtrack())
            return false;
    }
}

// Tells of the work done since the last time.
void Matcher::Report() {
    constexpr std::uint64_t between = 1 << 16, nanosecondsAStep = 8;
    m_nextReport = m_steps < between ? 0 : m_steps - between;
    Work::Done(between * nanosecondsAStep);
}

bool Matcher::Step(const Instruction& instruction) {
    switch (instruction.operation) {
    case Operation::Character:
    case Operation::AnyButNewline:
    case Operation::Set:
        return m_position < m_end && Accepts(instruction, m_text[static_cast<std::size_t>(m_position++)]);
    case Operation::SpanGreedy:
    case Operation::SpanLazy: return TakeSpan(instruction);
    case Operation::LineStart: return AtLineStart();
    case Operation::LineEnd: return AtLineEnd();
    case Operation::WordEdge: return AtWordEdge();
    case Operation::NotWordEdge: return !AtWordEdge();
    case Operation::GroupAgain: return TakeGroupAgain(instruction.a);
    case Operation::Save: Set(instruction.a, m_position); return true;
    case Operation::Split:
        Push({Way::Alternative, instruction.b, m_position, 0});
        m_next = instruction.a;
        return true;
    case Operation::Jump: m_next = instruction.a; return true;
    case Operation::RepeatBegin: {
        const std::int32_t counter =
            m_program.repetitions[static_cast<std::size_t>(instruction.a)].countRegister;
        Set(counter, 0);
        Set(counter + 1, -1);
        return true;
    }
    case Operation::RepeatNext: return NextRound(instruction);
    case Operation::LookBegin:
        Set(instruction.a, static_cast<std::int32_t>(m_ways.size()) + 1); // behind the entry of Set itself
        Set(instruction.a + 1, m_position);
        // A look-ahead that must fail goes on behind itself once every way through it has failed.
        if (instruction.b >= 0)
            Push({Way::Alternative, instruction.b, m_position, 0});
        return true;
    case Operation::LookEnd: return EndLookAhead(instruction);
    case Operation::Match: break;
    }
    return true;
}

bool Matcher::Backtrack() {
    while (!m_ways.empty()) {
        Entry& entry = m_ways.back();
        m_position = entry.position;
        m_next = entry.target;
        switch (entry.way) {
        case Way::Register:
            Register(entry.target) = entry.limit;
            m_ways.pop_back();
            continue;
        case Way::Alternative: m_ways.pop_back(); return true;
        case Way::Round: {
            const std::int32_t counter = entry.limit;
            m_ways.pop_back();
            BeginRound(counter);
            return true;
        }
        case Way::Shrink:
            if (--entry.position < entry.limit) {
                m_ways.pop_back();
                continue;
            }
            m_position = entry.position;
            return true;
        case Way::Grow: {
            // The instruction before the target is the one that the span repeats.
            const Instruction& one = m_program.code[static_cast<std::size_t>(entry.target) - 1];
            const bool more = entry.position < entry.limit &&
                              Accepts(one, m_text[static_cast<std::size_t>(entry.position)]);
            if (!more) {
                m_ways.pop_back();
                continue;
            }
            m_position = ++entry.position;
            return true;
        }
        }
    }
    return false;
}

void Matcher::Push(Entry entry) {
    if (m_ways.size() == MostWaysBack)
        throw Failure(numbers::OutOfMemory);
    m_ways.push_back(entry);
}

void Matcher::Set(std::int32_t index, std::int32_t value) {
    Push({Way::Register, index, 0, Register(index)});
    Register(index) = value;
}

bool Matcher::Accepts(const Instruction& instruction, char16_t c) const {
    switch (instruction.operation) {
    case Operation::Character:
        return c == instruction.a || (m_program.ignoreCase && UpperOf(c) == instruction.a);
    case Operation::AnyButNewline: return c != u'\n';
    default: break;
    }
    const CharacterSet& set = m_program.sets[static_cast<std::size_t>(instruction.a)];
    return set.Contains(c, m_program.ignoreCase);
}

bool Matcher::TakeSpan(const Instruction& span) {
    const bool lazy = span.operation == Operation::SpanLazy;
    const Instruction& one = m_program.code[static_cast<std::size_t>(m_next++)];
    const std::int32_t room = m_end - m_position;
    if (span.a > room)
        return false;
    const std::int32_t minimum = m_position + span.a;
    const std::int32_t maximum = m_position + std::min(span.b, room);
    const std::int32_t wanted = lazy ? minimum : maximum;
    const std::int32_t start = m_position;
    while (m_position < wanted && Accepts(one, m_text[static_cast<std::size_t>(m_position)]))
        ++m_position;
    Spend(static_cast<std::uint64_t>(m_position - start) / 8);
    if (m_position < minimum)
        return false;
    if (lazy)
        Push({Way::Grow, m_next, m_position, maximum});
    else if (m_position > minimum)
        Push({Way::Shrink, m_next, m_position, minimum});
    return true;
}

bool Matcher::TakeGroupAgain(std::int32_t group) {
    const Span span = Group(group);
    if (!span.Matched())
        return true; // a group that took no part matches the empty text
    const std::int32_t length = span.end - span.start;
    if (length > m_end - m_position)
        return false;
    Spend(static_cast<std::uint64_t>(length) / 8);
    for (std::int32_t i = 0; i < length; ++i) {
        const char16_t was = m_text[static_cast<std::size_t>(span.start + i)];
        const char16_t is = m_text[static_cast<std::size_t>(m_position + i)];
        if (was != is && !(m_program.ignoreCase && UpperOf(was) == UpperOf(is)))
            return false;
    }
    m_position += length;
    return true;
}

// At the head of a repetition: another round or on behind it. A round that took nothing, and was not called
// for, fails: the way on without it was tried or is still to be tried.
bool Matcher::NextRound(const Instruction& next) {
    const Repetition& repetition = m_program.repetitions[static_cast<std::size_t>(next.a)];
    const std::int32_t counter = repetition.countRegister;
    const std::int32_t count = Register(counter);
    const std::int32_t body = m_next;
    if (count > repetition.minimum && Register(counter + 1) == m_position)
        return false;
    if (count >= repetition.maximum) {
        m_next = next.b;
        return true;
    }
    if (count >= repetition.minimum && repetition.lazy) {
        Push({Way::Round, body, m_position, counter});
        m_next = next.b;
        return true;
    }
    if (count >= repetition.minimum)
        Push({Way::Alternative, next.b, m_position, 0});
    BeginRound(counter);
    return true;
}

void Matcher::BeginRound(std::int32_t counter) {
    Set(counter, Register(counter) + 1);
    Set(counter + 1, m_position);
}

// The body has matched. If it must: forget its other ways, keep what they restore, and go on where it began.
// If it must not: undo everything it did and fail.
bool Matcher::EndLookAhead(const Instruction& end) {
    const auto mark = static_cast<std::size_t>(Register(end.a));
    if (end.b == 0) {
        m_position = Register(end.a + 1);
        const auto tail = m_ways.begin() + static_cast<std::ptrdiff_t>(mark);
        m_ways.erase(
            std::remove_if(tail, m_ways.end(), [](const Entry& entry) { return entry.way != Way::Register; }),
            m_ways.end());
        return true;
    }
    for (; m_ways.size() > mark; m_ways.pop_back()) {
        if (m_ways.back().way == Way::Register)
            Register(m_ways.back().target) = m_ways.back().limit;
    }
    return false;
}

bool Matcher::AtLineStart() const {
    return m_position == 0 ||
           (m_program.multiLine && IsLineEnd(m_text[static_cast<std::size_t>(m_position) - 1]));
}

bool Matcher::AtLineEnd() const {
    return m_position == m_end ||
           (m_program.multiLine && IsLineEnd(m_text[static_cast<std::size_t>(m_position)]));
}

bool Matcher::AtWordEdge() const {
    const bool before = m_position > 0 && IsWord(m_text[static_cast<std::size_t>(m_position) - 1]);
    const bool after = m_position < m_end && IsWord(m_text[static_cast<std::size_t>(m_position)]);
    return before != after;
}

} // namespace quillon::vbscript::regexp
