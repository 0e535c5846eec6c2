// Run-time failures: who handles them, and where they are reported.

#include "platform/FailureNumbers.h"
#include "vbscript/machine/Machine.h"
#include "vbscript/machine/Work.h"

namespace quillon::vbscript {
namespace {

std::string LineOf(const Unit* unit, std::int32_t line) {
    if (unit == nullptr || line < 1 || static_cast<std::size_t>(line) > unit->lineStarts.size())
        return {};
    const std::u16string_view text = unit->text;
    const std::size_t start = unit->lineStarts[static_cast<std::size_t>(line) - 1];
    const std::size_t end = text.find_first_of(u"\r\n", start);
    return ToUtf8(text.substr(start, end == std::u16string_view::npos ? end : end - start));
}

} // namespace

void Machine::RaiseNamed(std::int32_t number, NameId name) {
    throw NamedFailure(number, name == NoName ? std::string() : m_names.Utf8(name));
}

const StatementMark& Machine::MarkOf(const Code& code, Step at) noexcept {
    const auto place = static_cast<std::uint32_t>(at - code.instructions.data());
    const auto behind = std::ranges::upper_bound(code.marks, place, {}, &StatementMark::start);
    return behind == code.marks.begin() ? code.marks.front() : *std::prev(behind);
}

Place Machine::CurrentPlace() const noexcept {
    return m_frames.empty() ? Place{} : MarkOf(*m_frames.back().code, m_at).place;
}

ScriptFailure Machine::Placed(const Failure& failure, const Code& code, Step at) {
    if (const auto* placed = dynamic_cast<const ScriptFailure*>(&failure))
        return *placed;
    if (const auto* compile = dynamic_cast<const CompileFailure*>(&failure))
        return ScriptFailure(failure, {}, compile->place(), {});
    const Place place = MarkOf(code, at).place;
    const auto* named = dynamic_cast<const NamedFailure*>(&failure);
    return ScriptFailure(failure, named == nullptr ? std::string() : named->name, place,
                         LineOf(code.unit, place.line));
}

void Machine::Locate(ScriptStopped& stopped) const {
    const Work::Unasked untilLocated;
    const Code& code = *m_frames.back().code;
    stopped.place = MarkOf(code, m_at).place;
    stopped.text = LineOf(code.unit, stopped.place.line);
}

// Goes back through the frames to one that resumes at its next statement; what none handles leaves the loop.
// A request to stop waits until then: frames that are left half way would stay.
Machine::Step Machine::Recover(const Failure& failure) {
    const Work::Unasked untilRecovered;
    const ScriptFailure placed = Placed(failure, *Top().code, m_at);
    Step at = m_at;
    for (;;) {
        const Code& code = *Top().code;
        if (Top().resumesNext) {
            const StatementMark& mark = MarkOf(code, at);
            Variant* const registers = Top().registers;
            m_at = at;
            ClearRegisters(registers + mark.temporaries, registers + code.registers);
            m_err->Take(placed);
            return code.instructions.data() + mark.resume;
        }
        const bool isBoundary = Top().isBoundary;
        Leave();
        if (isBoundary)
            throw placed;
        at = m_at;
    }
}

void Machine::UnwindToBoundary() noexcept {
    for (bool isBoundary = false; !isBoundary;) {
        isBoundary = Top().isBoundary;
        Leave();
    }
}

void Machine::Poll() {
    PollSlowly();
}

void Machine::PollSlowly() {
    m_untilPoll = PollInterval;
    m_steps += PollInterval;
    if (m_stop.load(std::memory_order_relaxed) || (m_stepLimit != 0 && m_steps > m_stepLimit))
        throw ScriptStopped{};
}

} // namespace quillon::vbscript
