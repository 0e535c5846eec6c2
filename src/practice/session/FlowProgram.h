// The flow of control of a batch or module, laid out flat: IF, WHILE, GOTO and TRY become jumps between
// numbered steps, so that GOTO can go anywhere and an error finds its handler by looking at the step that
// failed.
#pragma once

#include "practice/tsql/Tree.h"

namespace quillon::practice {

struct FlowStep {
    enum class Kind {
        Run,        // `statement`
        JumpUnless, // to `target` when `condition` is not true
        Jump,       // to `target`
        LeaveCatch, // the caught error is forgotten
    };
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    Kind kind = Kind::Run;
    const tsql::Statement* statement = nullptr; // of JumpUnless: the IF or WHILE
    const tsql::Expression* condition = nullptr;
    std::size_t target = none;
    std::size_t resume = none; // where to go on when the step has failed and its error does not end the batch
    std::size_t handler = none; // first step of the CATCH block that guards this step
    std::size_t catches = 0;    // CATCH blocks around this step
};

/// Belongs to the tree it was made from and must not outlive it.
class FlowProgram : public tsql::Attachment {
  public:
    explicit FlowProgram(const tsql::StatementList& statements);
    const std::vector<FlowStep>& Steps() const { return m_steps; }

  private:
    friend class FlowBuilder;
    std::vector<FlowStep> m_steps;
};

} // namespace quillon::practice
