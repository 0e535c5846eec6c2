// Assignments, joining texts, and the loops that count and walk.

#include "platform/FailureNumbers.h"
#include "vbscript/machine/Convert.h"
#include "vbscript/machine/Elements.h"
#include "vbscript/machine/FastPaths.h"
#include "vbscript/machine/Machine.h"
#include "vbscript/machine/Walks.h"

namespace quillon::vbscript {

void Machine::DoLet(Step at, bool takes) {
    Variant& source = At(at->b);
    if (Variant& plain = At(at->a); fast::IsPlain(source) && fast::IsPlain(plain)) {
        plain = source;
        return;
    }
    Variant value = takes && source.kind() != Kind::Reference ? std::move(source) : Variant(Read(at->b));
    if (value.IsObject() || value.IsArray())
        value = AssignedValue(std::move(value));
    Store(at->a, std::move(value));
}

void Machine::DoSet(Step at, bool takes) {
    Variant value = takes ? std::move(At(at->b)) : Variant(Read(at->b));
    if (!value.IsObject())
        RaiseNamed(numbers::ObjectRequired, NameOf(at->b));
    Store(at->a, std::move(value));
}

void Machine::DoConcatenate(Step at) {
    const Variant &left = Read(at->b), &right = Read(at->c);
    Variant& target = Target(at->a);
    if (&left == &target && left.IsText() && right.IsText())
        target.AsText().Append(right.AsText());
    else
        Store(at->a, Concatenate(left, right));
}

// The parts lie in registers and are used up. Where the first one is the target's own text, `s = s & ...`,
// the rest is appended to it in place.
void Machine::DoJoin(Step at) {
    const std::span<Variant> parts(Base(at->b), at->c);
    std::size_t length = 0;
    bool allNull = true, halves = false;
    for (Variant& part : parts) {
        if (part.IsObject())
            part = PlainValue(part);
        allNull = allNull && part.IsNull();
        if (!part.IsText())
            part = part.IsNull() ? Text() : ToText(part);
        length += part.AsText().Length();
        halves |= part.AsText().EndsInHalf();
    }
    Variant& target = Target(at->a);
    Variant joined;
    if (allNull) {
        joined = NullValue{};
    } else if (&target != &parts[0] && target.IsText() && target.AsText().SharesWith(parts[0].AsText()) &&
               target.AsText().Owners() == 2) {
        parts[0] = Variant();
        for (const Variant& part : parts.subspan(1)) {
            if (halves)
                target.AsText().Append(part.AsText());
            else
                target.AsText().Append(part.View());
        }
    } else if (halves) {
        Text text;
        for (const Variant& part : parts)
            text.Append(part.AsText());
        joined = std::move(text);
    } else {
        Text text = Text::OfLength(length);
        char16_t* place = text.Writable();
        for (const Variant& part : parts)
            place = std::ranges::copy(part.View(), place).out;
        joined = std::move(text);
    }
    const bool inPlace = joined.IsEmpty();
    for (Variant& part : parts)
        if (&part != &target || !inPlace)
            part = Variant();
    if (!inPlace)
        Store(at->a, std::move(joined));
}

// Start, limit and step become numbers. Jumps to the loop's end if there is nothing to do.
Machine::Step Machine::DoForBegin(Step at) {
    Variant* const hidden = Base(at->b);
    for (int i : {2, 0, 1}) {
        if (hidden[i].IsNull())
            throw Failure(numbers::InvalidUseOfNull);
        hidden[i] = ToNumber(hidden[i]);
        if (hidden[i].kind() == Kind::Boolean || hidden[i].IsEmpty())
            hidden[i] = ToInteger(hidden[i]);
    }
    Variant start = std::move(hidden[2]);
    const bool upwards = IsTrue(Compare(Comparison::GreaterOrEqual, hidden[1], std::int16_t{0}, {}));
    const bool done = IsTrue(Compare(upwards ? Comparison::Greater : Comparison::Less, start, hidden[0], {}));
    Store(at->a, std::move(start));
    return done ? JumpTarget(at) : at + 2;
}

Machine::Step Machine::DoForNext(Step at) {
    const Variant &limit = Base(at->b)[0], &step = Base(at->b)[1];
    if (step.IsEmpty())
        throw Failure(numbers::ForLoopNotInitialized);
    bool again = false;
    if (fast::CountLoop(Target(at->a), limit, step, again))
        return again ? JumpTarget(at) : at + 2;
    Store(at->a, Add(Read(at->a), step));
    const bool upwards = IsTrue(Compare(Comparison::GreaterOrEqual, step, std::int16_t{0}, {}));
    again = IsTrue(
        Compare(upwards ? Comparison::LessOrEqual : Comparison::GreaterOrEqual, Read(at->a), limit, {}));
    return again ? JumpTarget(at) : at + 2;
}

Machine::Step Machine::DoEachNext(Step at) {
    CountStep();
    const Variant walk = *Base(at->b);
    if (!walk.IsObject())
        throw Failure(numbers::NotACollection);
    Variant element;
    if (!static_cast<WalkObject*>(ScriptObjectIn(walk))->Next(element)) {
        Store(at->a, {}); // a loop that has come to its end leaves Empty in its variable
        return at + 2;
    }
    AssignVariable(Target(at->a), element.IsObject() ? element : AssignedValue(element), element.IsObject());
    return JumpTarget(at);
}

} // namespace quillon::vbscript
