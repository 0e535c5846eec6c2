// The loop over instructions: the common cases in place, everything else in the functions of the other files.

#include "platform/FailureNumbers.h"
#include "vbscript/machine/Elements.h"
#include "vbscript/machine/FastPaths.h"
#include "vbscript/machine/Machine.h"
#include "vbscript/machine/Walks.h"

namespace quillon::vbscript {
template <class Operation>
void Machine::Binary(Step at, Operation operation) {
    Store(at->a, operation(Read(at->b), Read(at->c)));
}

// The operands may stand behind references: then the common case is met after all.
void Machine::SlowArithmetic(Step at, FastOperator common, SlowOperator general) {
    const Variant &left = Read(at->b), &right = Read(at->c);
    if (Variant& target = Target(at->a); !common(target, left, right))
        Store(at->a, general(left, right));
}

bool Machine::ComparesTrue(Step at, Comparison comparison) {
    const LiteralSides literals{SpaceOf(at->a) == Space::Constant, SpaceOf(at->b) == Space::Constant};
    return IsTrue(Compare(comparison, Read(at->a), Read(at->b), literals));
}

bool Machine::IsTrueFast(Step at) {
    const Variant& condition = At(at->a);
    return condition.kind() == Kind::Boolean ? condition.Number() != 0 : IsTrue(Read(at->a));
}

Machine::Step Machine::JumpTarget(Step at) noexcept {
    return at + static_cast<std::int32_t>(at[1].Word());
}

void Machine::RunLoop() {
    Step at = Top().code->instructions.data();
    for (;;) {
        try {
            Loop(at);
            return;
        } catch (const Failure& failure) {
            at = Recover(failure);
        } catch (const std::bad_alloc&) {
            at = Recover(Failure(numbers::OutOfMemory));
        } catch (ScriptStopped& stopped) {
            if (stopped.place.line == 0)
                Locate(stopped);
            UnwindToBoundary();
            throw;
        } catch (...) { // a failure of the surroundings that is none of a script's
            UnwindToBoundary();
            throw;
        }
    }
}

#define FAST_OPERATOR(NAME)                                                                                  \
    case Op::NAME: {                                                                                         \
        Variant& target = At(at->a);                                                                         \
        const Variant &left = At(at->b), &right = At(at->c);                                                 \
        if (!fast::NAME(target, left, right))                                                                \
            SlowArithmetic(at, fast::NAME, NAME);                                                            \
        ++at;                                                                                                \
        break;                                                                                               \
    }
#define SLOW_OPERATOR(NAME)                                                                                  \
    case Op::NAME:                                                                                           \
        Binary(at, [](const Variant& left, const Variant& right) { return NAME(left, right); });             \
        ++at;                                                                                                \
        break;
#define COMPARISON(NAME)                                                                                     \
    case Op::NAME: {                                                                                         \
        bool holds = false;                                                                                  \
        if (fast::Compare<Comparison::NAME>(holds, At(at->b), At(at->c)) && fast::IsPlain(At(at->a)))        \
            At(at->a).SetNumber(Kind::Boolean, holds ? -1 : 0);                                              \
        else                                                                                                 \
            Store(at->a, Compare(Comparison::NAME, Read(at->b), Read(at->c), LiteralsOf(at)));               \
        ++at;                                                                                                \
        break;                                                                                               \
    }                                                                                                        \
    case Op::Unless##NAME: {                                                                                 \
        bool holds = false;                                                                                  \
        if (!fast::Compare<Comparison::NAME>(holds, At(at->a), At(at->b)))                                   \
            holds = ComparesTrue(at, Comparison::NAME);                                                      \
        at = holds ? at + 2 : JumpTarget(at);                                                                \
        break;                                                                                               \
    }

void Machine::Loop(Step at) {
    for (;;) {
        m_at = at;
        switch (at->op) {
            FAST_OPERATOR(Add)
            FAST_OPERATOR(Subtract)
            FAST_OPERATOR(Multiply)
            FAST_OPERATOR(Divide)
            FAST_OPERATOR(WholeDivide)
            FAST_OPERATOR(Modulo)
            SLOW_OPERATOR(Power)
            SLOW_OPERATOR(And)
            SLOW_OPERATOR(Or)
            SLOW_OPERATOR(Xor)
            SLOW_OPERATOR(Eqv)
            SLOW_OPERATOR(Imp)
            COMPARISON(Equal)
            COMPARISON(NotEqual)
            COMPARISON(Less)
            COMPARISON(LessOrEqual)
            COMPARISON(Greater)
            COMPARISON(GreaterOrEqual)
        case Op::Is:
            Binary(at, [](const Variant& left, const Variant& right) {
                return Variant(IsSameObject(left, right));
            });
            ++at;
            break;
        case Op::Negate:
            Store(at->a, Negate(Read(at->b)));
            ++at;
            break;
        case Op::Not:
            Store(at->a, Not(Read(at->b)));
            ++at;
            break;
        case Op::Test:
            Store(at->a, IsTrue(Read(at->b)));
            ++at;
            break;
        case Op::Concatenate:
            DoConcatenate(at);
            ++at;
            break;
        case Op::Join:
            DoJoin(at);
            ++at;
            break;

        case Op::Let:
            DoLet(at, false);
            ++at;
            break;
        case Op::LetTake:
            DoLet(at, true);
            ++at;
            break;
        case Op::Set:
            DoSet(at, false);
            ++at;
            break;
        case Op::SetTake:
            DoSet(at, true);
            ++at;
            break;
        case Op::Copy:
            At(at->a) = Variant(Read(at->b));
            ++at;
            break;
        case Op::Take:
            At(at->a) = std::move(At(at->b));
            ++at;
            break;
        case Op::LoadConstant:
            At(at->a) = Variant(Top().code->constants[at[1].Word()]);
            at += 2;
            break;
        case Op::LoadMe:
            At(at->a) = Variant(Top().me);
            ++at;
            break;
        case Op::Clear:
            ClearRegisters(Base(at->a), Base(at->b));
            ++at;
            break;
        case Op::LoadName: at = DoLoadName(at); break;
        case Op::Refer: at = DoRefer(at); break;
        case Op::ReferElement:
            DoReferElement(at);
            at += 2;
            break;

        case Op::Jump: at = JumpTarget(at); break;
        case Op::JumpBack:
            CountStep();
            at = JumpTarget(at);
            break;
        case Op::JumpIfFalse: at = IsTrueFast(at) ? at + 2 : JumpTarget(at); break;
        case Op::JumpIfTrue: at = IsTrueFast(at) ? JumpTarget(at) : at + 2; break;
        case Op::ForBegin: at = DoForBegin(at); break;
        case Op::ForNext: {
            CountStep();
            bool again = false;
            if (!fast::CountLoop(At(at->a), Base(at->b)[0], Base(at->b)[1], again)) {
                at = DoForNext(at);
                break;
            }
            at = again ? JumpTarget(at) : at + 2;
            break;
        }
        case Op::EachBegin:
            At(at->a) = Variant(BeginWalk(Variant(Read(at->b))));
            ++at;
            break;
        case Op::EachNext: at = DoEachNext(at); break;

        case Op::Call: at = DoCall(at, true); break;
        case Op::CallSub: at = DoCall(at, false); break;
        case Op::CallName: at = DoCallName(at, true); break;
        case Op::CallNameSub: at = DoCallName(at, false); break;
        case Op::CallBuiltin: at = DoCallBuiltin(at); break;
        case Op::CallSelf: at = DoCallSelf(at, true); break;
        case Op::CallSelfSub: at = DoCallSelf(at, false); break;
        case Op::Index: at = DoIndex(at); break;
        case Op::IndexMany: at = DoIndexMany(at); break;
        case Op::StoreIndex:
            DoStoreIndex(at, false);
            ++at;
            break;
        case Op::StoreMany:
            DoStoreMany(at, false);
            ++at;
            break;
        case Op::SetIndex:
            DoStoreIndex(at, true);
            ++at;
            break;
        case Op::SetMany:
            DoStoreMany(at, true);
            ++at;
            break;
        case Op::GetMember: at = DoGetMember(at, InvokeKind::Get); break;
        case Op::CallMember: at = DoGetMember(at, InvokeKind::Call); break;
        case Op::LetMember: at = DoPutMember(at, InvokeKind::Let); break;
        case Op::SetMember: at = DoPutMember(at, InvokeKind::Set); break;
        case Op::LetName:
            DoPutName(at, InvokeKind::Let);
            ++at;
            break;
        case Op::SetName:
            DoPutName(at, InvokeKind::Set);
            ++at;
            break;
        case Op::New: at = DoNew(at); break;
        case Op::Execute: at = DoExecute(at); break;
        case Op::GetReference:
            DoGetReference(at);
            ++at;
            break;

        case Op::DimArray:
            DoDimArray(at);
            ++at;
            break;
        case Op::ReDim:
            DoReDim(at, false);
            ++at;
            break;
        case Op::ReDimPreserve:
            DoReDim(at, true);
            ++at;
            break;
        case Op::Erase:
            DoErase(at);
            ++at;
            break;
        case Op::OnErrorResume:
            Top().resumesNext = true;
            m_err->Clear();
            ++at;
            break;
        case Op::OnErrorStop:
            Top().resumesNext = false;
            m_err->Clear();
            ++at;
            break;
        case Op::Raise: throw Failure(static_cast<std::int32_t>(at[1].Word()));
        case Op::Return:
            at = Return();
            if (at == nullptr)
                return;
            break;
        }
    }
}

#undef FAST_OPERATOR
#undef SLOW_OPERATOR
#undef COMPARISON

} // namespace quillon::vbscript
