// Branches, loops and With. What they keep between their parts lies in registers below the temporaries of
// the statements inside, so that an error in one of those lets it live.

#include "vbscript/machine/ProcedureCompiler.h"

namespace quillon::vbscript {

void ProcedureCompiler::CompileIf(const IfStatement& branches) {
    Label end;
    for (std::size_t i = 0; i < branches.branches.size(); ++i) {
        const Branch& branch = branches.branches[i];
        const std::size_t mark = m_write.BeginMark(branch.place);
        Label next;
        JumpUnless(*branch.condition, next);
        m_write.SetResume(mark); // a condition that fails enters the block
        CompileBlock(branch.body);
        if (i + 1 < branches.branches.size() || !branches.otherwise.empty())
            m_write.EmitJump(Op::Jump, end);
        m_write.Bind(next);
    }
    CompileBlock(branches.otherwise);
    m_write.Bind(end);
}

void ProcedureCompiler::CompileCaseTest(Operand subject, const SelectCase& test, Label& next) {
    Label body;
    for (std::size_t i = 0; i < test.values.size(); ++i) {
        const std::uint16_t place = m_write.NextRegister();
        const bool isLast = i + 1 == test.values.size();
        Label other;
        const Operand value = Value(*test.values[i]);
        m_write.ReleaseTo(place);
        const std::uint16_t holds = m_write.TakeRegister();
        m_write.Emit(Op::Equal, holds, subject, value);
        m_write.EmitClearBut(holds);
        if (isLast)
            m_write.EmitJump(Op::JumpIfFalse, next, holds);
        else
            m_write.EmitJump(Op::JumpIfTrue, body, holds);
        m_write.ReleaseTo(place);
    }
    m_write.Bind(body);
}

void ProcedureCompiler::CompileSelect(const SelectStatement& select) {
    const std::size_t head = m_write.BeginMark(select.place);
    const std::uint16_t subject = m_write.TakeRegister();
    m_write.ReleaseTo(subject);
    const Operand value = Value(*select.subject);
    m_write.ReleaseTo(subject);
    (void)m_write.TakeRegister();
    m_write.Emit(m_write.IsTemporary(value) ? Op::LetTake : Op::Let, subject, value);
    m_write.ForgetObjectIn(subject);
    m_write.EmitClearBut(subject); // the cases are yet to be compared with it
    m_write.SetResume(head);
    Label end;
    for (const SelectCase& test : select.cases) {
        const std::size_t mark = m_write.BeginMark(test.place);
        Label next;
        CompileCaseTest(subject, test, next);
        m_write.SetResume(mark);
        CompileBlock(test.body);
        m_write.EmitJump(Op::Jump, end);
        m_write.Bind(next);
    }
    CompileBlock(select.otherwise);
    m_write.Bind(end);
    m_write.SetResume(head); // a subject that fails skips all of it
}

void ProcedureCompiler::CompileLoopBody(Block body, ExitKind kind, Label& exit) {
    m_loops.push_back({kind, &exit});
    CompileBlock(body);
    m_loops.pop_back();
}

void ProcedureCompiler::CompileFor(const ForStatement& loop) {
    const std::size_t head = m_write.BeginMark(loop.place);
    const std::uint16_t limit = m_write.TakeRegister();
    const std::uint16_t step = m_write.TakeRegister();
    const std::uint16_t start = m_write.TakeRegister();
    m_write.ReleaseTo(start);
    m_code.marks[head].temporaries = limit;
    const Operand variable = VariableOperand(loop.variable);
    ValueInto(*loop.from, start);
    const std::uint16_t scratch = m_write.NextRegister();
    m_write.Emit(Op::Copy, limit, Value(*loop.to));
    m_write.ReleaseTo(scratch);
    if (loop.step == nullptr)
        m_write.Emit(Op::Copy, step, m_write.Constant(std::int16_t{1}));
    else
        m_write.Emit(Op::Copy, step, Value(*loop.step));
    m_write.ReleaseTo(scratch);
    m_write.EmitClearFrom(scratch); // start, limit and step are yet to be used
    Label exit, body;
    m_write.EmitJump(Op::ForBegin, exit, variable, limit);
    m_write.SetResume(head); // a head that fails runs the body once
    m_write.Bind(body);
    m_write.ReleaseTo(start);
    CompileLoopBody(loop.body, ExitKind::For, exit);
    const std::size_t next = m_write.BeginMark(loop.end);
    m_write.EmitJump(Op::ForNext, body, variable, limit);
    m_write.SetResume(next);
    m_write.Bind(exit);
    EmitLoopEnd(limit);
}

void ProcedureCompiler::CompileForEach(const ForEachStatement& loop) {
    const std::size_t head = m_write.BeginMark(loop.place);
    const std::uint16_t walk = m_write.TakeRegister();
    const Operand variable = VariableOperand(loop.variable);
    const std::uint16_t scratch = m_write.NextRegister();
    m_write.Emit(Op::EachBegin, walk, Value(*loop.collection));
    m_write.ReleaseTo(scratch);
    m_write.EmitClear();
    Label exit, next, body;
    m_write.EmitJump(Op::Jump, next);
    m_write.SetResume(head);
    m_write.Bind(body);
    CompileLoopBody(loop.body, ExitKind::For, exit);
    m_write.Bind(next);
    const std::size_t end = m_write.BeginMark(loop.end);
    m_write.EmitJump(Op::EachNext, body, variable, walk);
    m_write.SetResume(end);
    m_write.Bind(exit);
    EmitLoopEnd(walk);
}

// Leaving a loop lets go of what it and the blocks inside it held, however it was left.
void ProcedureCompiler::EmitLoopEnd(std::uint16_t first) {
    m_write.Emit(Op::Clear, first, m_code.registers);
    m_write.ReleaseTo(first);
}

void ProcedureCompiler::CompileDo(const DoStatement& loop) {
    Label exit, start;
    const std::uint16_t first = m_write.NextRegister();
    m_write.Bind(start);
    const bool isBefore = loop.loop == LoopKind::WhileBefore || loop.loop == LoopKind::UntilBefore;
    if (isBefore) {
        const std::size_t head = m_write.BeginMark(loop.place);
        if (loop.loop == LoopKind::WhileBefore)
            JumpUnless(*loop.condition, exit);
        else
            JumpOn(*loop.condition, Op::JumpIfTrue, exit);
        m_write.SetResume(head);
    }
    if (loop.isWhileWend)
        CompileBlock(loop.body);
    else
        CompileLoopBody(loop.body, ExitKind::Do, exit);
    const std::size_t end = m_write.BeginMark(loop.end);
    if (loop.loop == LoopKind::WhileAfter)
        JumpUnless(*loop.condition, exit);
    else if (loop.loop == LoopKind::UntilAfter)
        JumpOn(*loop.condition, Op::JumpIfTrue, exit);
    m_write.EmitJump(Op::JumpBack, start);
    m_write.SetResume(end);
    m_write.Bind(exit);
    EmitLoopEnd(first);
}

void ProcedureCompiler::CompileWith(const WithStatement& with) {
    const std::size_t head = m_write.BeginMark(with.place);
    const std::uint16_t object = m_write.TakeRegister();
    m_write.ReleaseTo(object);
    ValueInto(*with.object, object);
    m_write.ForgetObjectIn(object);
    m_write.EmitClearBut(object);
    m_write.SetResume(head);
    m_withs.push_back(object);
    CompileBlock(with.body);
    m_withs.pop_back();
    const std::size_t end = m_write.BeginMark(with.place);
    m_write.Emit(Op::Clear, object, object + 1u);
    m_write.ReleaseTo(object);
    m_write.SetResume(end);
}

} // namespace quillon::vbscript
