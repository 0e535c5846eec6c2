// Expressions but for calls.

#include "platform/FailureNumbers.h"
#include "vbscript/machine/ProcedureCompiler.h"

namespace quillon::vbscript {
namespace {

Op OpOf(BinaryOperator operation) noexcept {
    switch (operation) {
    case BinaryOperator::Power: return Op::Power;
    case BinaryOperator::Multiply: return Op::Multiply;
    case BinaryOperator::Divide: return Op::Divide;
    case BinaryOperator::WholeDivide: return Op::WholeDivide;
    case BinaryOperator::Modulo: return Op::Modulo;
    case BinaryOperator::Add: return Op::Add;
    case BinaryOperator::Subtract: return Op::Subtract;
    case BinaryOperator::Concatenate: return Op::Concatenate;
    case BinaryOperator::Equal: return Op::Equal;
    case BinaryOperator::NotEqual: return Op::NotEqual;
    case BinaryOperator::Less: return Op::Less;
    case BinaryOperator::LessOrEqual: return Op::LessOrEqual;
    case BinaryOperator::Greater: return Op::Greater;
    case BinaryOperator::GreaterOrEqual: return Op::GreaterOrEqual;
    case BinaryOperator::Is: return Op::Is;
    case BinaryOperator::And: return Op::And;
    case BinaryOperator::Or: return Op::Or;
    case BinaryOperator::Xor: return Op::Xor;
    case BinaryOperator::Eqv: return Op::Eqv;
    case BinaryOperator::Imp: return Op::Imp;
    }
    return Op::Add;
}

Op OpOf(UnaryOperator operation) noexcept {
    return operation == UnaryOperator::Negate ? Op::Negate : Op::Not;
}

const BinaryExpression* AsBinary(const Expression* expression) noexcept {
    return expression->kind == ExpressionKind::Binary ? static_cast<const BinaryExpression*>(expression)
                                                      : nullptr;
}

bool IsComparison(BinaryOperator operation) noexcept {
    return operation >= BinaryOperator::Equal && operation <= BinaryOperator::GreaterOrEqual;
}

Op JumpOf(BinaryOperator comparison) noexcept {
    return static_cast<Op>(static_cast<int>(Op::UnlessEqual) + static_cast<int>(comparison) -
                           static_cast<int>(BinaryOperator::Equal));
}

} // namespace

// Where a result goes: where it is wanted, or into the register `place`, which is then taken.
Operand ProcedureCompiler::Target(int want, std::uint16_t place) {
    m_write.ReleaseTo(place);
    if (want != Anywhere)
        return static_cast<Operand>(want);
    return m_write.TakeRegister();
}

Operand ProcedureCompiler::Value(const Expression& expression, int want) {
    switch (expression.kind) {
    case ExpressionKind::Literal:
        return m_write.ConstantOf(static_cast<const LiteralExpression&>(expression));
    case ExpressionKind::Name: return NameValue(static_cast<const NameExpression&>(expression));
    case ExpressionKind::Member: return MemberValue(static_cast<const MemberExpression&>(expression), {});
    case ExpressionKind::Call: return CallValue(static_cast<const CallExpression&>(expression));
    case ExpressionKind::Unary: return UnaryValue(static_cast<const UnaryExpression&>(expression), want);
    case ExpressionKind::Binary: return BinaryValue(static_cast<const BinaryExpression&>(expression), want);
    case ExpressionKind::New: return NewValue(static_cast<const NewExpression&>(expression));
    case ExpressionKind::Bracket:
        return Value(*static_cast<const BracketExpression&>(expression).inner, want);
    case ExpressionKind::Me: break;
    }
    if (m_class == nullptr && !m_code.isSnippet)
        throw CompileFailure(numbers::InvalidMe, expression.place);
    const std::uint16_t place = m_write.TakeRegister();
    m_write.Emit(Op::LoadMe, place);
    m_write.MayHoldObject(place);
    return place;
}

void ProcedureCompiler::ValueInto(const Expression& expression, std::uint16_t place) {
    const Operand value = Value(expression);
    m_write.ReleaseTo(place);
    (void)m_write.TakeRegister();
    if (value == place)
        return;
    m_write.Emit(Op::Copy, place, value);
    if (SpaceOf(value) != Space::Constant)
        m_write.MayHoldObject(place);
}

Operand ProcedureCompiler::NameValue(const NameExpression& name) {
    const Binding binding = Find(name.name);
    switch (binding.kind) {
    case Binding::Kind::Register:
    case Binding::Kind::Global:
    case Binding::Kind::Field: return OperandOf(binding);
    case Binding::Kind::Literal: return m_write.ConstantOf(*binding.literal);
    case Binding::Kind::Constant: return m_write.Constant(m_context.builtins.constants.at(name.name));
    default: return NamedCall(name, {}, false);
    }
}

// Whether evaluating it may run other code, which may change variables: it calls, or a name in it may be a
// procedure's.
bool ProcedureCompiler::RunsCode(const Expression& expression) const {
    switch (expression.kind) {
    case ExpressionKind::Literal:
    case ExpressionKind::Me: return false;
    case ExpressionKind::Name: {
        const Binding binding = Find(static_cast<const NameExpression&>(expression).name);
        return !IsVariable(binding) && binding.kind != Binding::Kind::Literal &&
               binding.kind != Binding::Kind::Constant;
    }
    case ExpressionKind::Unary: return RunsCode(*static_cast<const UnaryExpression&>(expression).operand);
    case ExpressionKind::Bracket: return RunsCode(*static_cast<const BracketExpression&>(expression).inner);
    case ExpressionKind::Binary: {
        const Expression* rest = &expression;
        for (const BinaryExpression* link = AsBinary(rest); link != nullptr; link = AsBinary(rest)) {
            if (RunsCode(*link->right))
                return true;
            rest = link->left;
        }
        return RunsCode(*rest);
    }
    default: return true;
    }
}

Operand ProcedureCompiler::UnaryValue(const UnaryExpression& unary, int want) {
    const std::uint16_t place = m_write.NextRegister();
    const Operand operand = Value(*unary.operand);
    const Operand target = Target(want, place);
    m_write.Emit(OpOf(unary.operation), target, operand);
    return target;
}

// A left operand in a variable that evaluating the right one may change is read before that.
Operand ProcedureCompiler::Protected(Operand operand, bool hasCalls, std::uint16_t place) {
    if (!hasCalls || SpaceOf(operand) == Space::Constant || m_write.IsTemporary(operand))
        return operand;
    m_write.ReleaseTo(place);
    const std::uint16_t copy = m_write.TakeRegister();
    m_write.Emit(Op::Copy, copy, operand);
    m_write.MayHoldObject(copy);
    return copy;
}

// The left operands of a chain of operators lie as deep in the tree as the chain is long: they are visited
// in a loop.
Operand ProcedureCompiler::BinaryValue(const BinaryExpression& binary, int want) {
    if (binary.operation == BinaryOperator::Concatenate &&
        (RunsCode(*binary.right) || (AsBinary(binary.left) != nullptr &&
                                     AsBinary(binary.left)->operation == BinaryOperator::Concatenate)))
        return JoinValue(binary, want);
    std::vector<const BinaryExpression*> chain;
    const Expression* first = &binary;
    while (const BinaryExpression* link = AsBinary(first)) {
        if (link != &binary && link->operation == BinaryOperator::Concatenate)
            break;
        chain.push_back(link);
        first = link->left;
    }
    const std::uint16_t place = m_write.NextRegister();
    Operand left = Value(*first);
    for (; !chain.empty(); chain.pop_back()) {
        const BinaryExpression& link = *chain.back();
        left = Protected(left, RunsCode(*link.right), place);
        const Operand right = Value(*link.right);
        const Operand target = Target(chain.size() == 1 ? want : Anywhere, place);
        m_write.Emit(OpOf(link.operation), target, left, right);
        left = target;
    }
    return left;
}

// A chain of & is joined at once. In `s = s & f(x)` the first part shares its text with the target, which
// the machine notices, and appends in place.
Operand ProcedureCompiler::JoinValue(const BinaryExpression& binary, int want) {
    constexpr std::size_t mostAtOnce = 100;
    std::vector<const Expression*> parts;
    const Expression* first = &binary;
    for (const BinaryExpression* link = AsBinary(first);
         link != nullptr && link->operation == BinaryOperator::Concatenate; link = AsBinary(first)) {
        parts.push_back(link->right);
        first = link->left;
    }
    parts.push_back(first);
    const std::uint16_t place = m_write.NextRegister();
    std::size_t count = 0;
    for (; !parts.empty(); parts.pop_back()) {
        ValueInto(*parts.back(), static_cast<std::uint16_t>(place + count));
        if (++count == mostAtOnce && parts.size() > 1) {
            m_write.Emit(Op::Join, place, place, static_cast<unsigned>(count));
            m_write.ReleaseTo(static_cast<std::uint16_t>(place + 1));
            count = 1;
        }
    }
    const Operand target = Target(want, place);
    m_write.Emit(Op::Join, target, place, static_cast<unsigned>(count));
    return target;
}

void ProcedureCompiler::JumpUnless(const Expression& condition, Label& label) {
    const std::uint16_t place = m_write.NextRegister();
    const BinaryExpression* binary = AsBinary(&condition);
    if (binary != nullptr && IsComparison(binary->operation)) {
        const Operand left = Protected(Value(*binary->left), RunsCode(*binary->right), place);
        const Operand right = Value(*binary->right);
        m_write.ReleaseTo(place);
        if (!m_write.HasObjects()) {
            m_write.EmitJump(JumpOf(binary->operation), label, left, right);
            return;
        }
        const std::uint16_t holds = m_write.TakeRegister();
        m_write.Emit(OpOf(binary->operation), holds, left, right);
        m_write.ForgetObjectIn(holds);
        m_write.EmitClearBut(holds);
        m_write.EmitJump(Op::JumpIfFalse, label, holds);
        m_write.ReleaseTo(place);
        return;
    }
    JumpOn(condition, Op::JumpIfFalse, label);
}

void ProcedureCompiler::JumpOn(const Expression& condition, Op op, Label& label) {
    const std::uint16_t place = m_write.NextRegister();
    Operand value = Value(condition);
    if (m_write.HasObjects()) {
        m_write.ReleaseTo(place);
        const std::uint16_t holds = m_write.TakeRegister();
        m_write.Emit(Op::Test, holds, value);
        m_write.EmitClearBut(holds);
        value = holds;
    }
    m_write.EmitJump(op, label, value);
    m_write.ReleaseTo(place);
}

} // namespace quillon::vbscript
