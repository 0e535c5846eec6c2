#include "practice/session/FlowProgram.h"

#include "practice/tsql/Keywords.h"

namespace quillon::practice {

class FlowBuilder {
  public:
    explicit FlowBuilder(std::vector<FlowStep>& steps)
        : m_steps(steps) {}

    void Build(const tsql::StatementList& statements) {
        List(statements);
        for (const auto& [step, label] : m_gotos)
            m_steps[step].target = m_labels.at(label); // the parser has made sure that there is one
        for (FlowStep& step : m_steps) {
            if (step.resume == FlowStep::none)
                step.resume = static_cast<std::size_t>(&step - m_steps.data()) + 1;
        }
    }

  private:
    std::size_t Here() const { return m_steps.size(); }

    FlowStep& Add(FlowStep::Kind kind, const tsql::Statement* statement) {
        FlowStep step;
        step.kind = kind;
        step.statement = statement;
        step.handler = m_handler;
        step.catches = m_catches;
        m_steps.push_back(step);
        return m_steps.back();
    }

    void List(const tsql::StatementList& statements) {
        for (const tsql::StatementPtr& statement : statements)
            One(*statement);
    }

    void One(const tsql::Statement& statement) {
        using tsql::StatementKind;
        switch (statement.kind) {
        case StatementKind::Block: List(tsql::As<tsql::BlockStatement>(statement).body); break;
        case StatementKind::If: If(tsql::As<tsql::IfStatement>(statement)); break;
        case StatementKind::While: While(tsql::As<tsql::WhileStatement>(statement)); break;
        case StatementKind::TryCatch: TryCatch(tsql::As<tsql::TryCatchStatement>(statement)); break;
        case StatementKind::Label:
            m_labels[tsql::UpperWord(tsql::As<tsql::LabelStatement>(statement).label)] = Here();
            break;
        case StatementKind::Goto:
            m_gotos.emplace_back(Here(), tsql::UpperWord(tsql::As<tsql::LabelStatement>(statement).label));
            Add(FlowStep::Kind::Jump, &statement);
            break;
        case StatementKind::Break:
            m_loops.back().breaks.push_back(Here());
            Add(FlowStep::Kind::Jump, &statement);
            break;
        case StatementKind::Continue:
            Add(FlowStep::Kind::Jump, &statement).target = m_loops.back().start;
            break;
        default: Add(FlowStep::Kind::Run, &statement);
        }
    }

    void If(const tsql::IfStatement& statement) {
        const std::size_t test = Here();
        Add(FlowStep::Kind::JumpUnless, &statement).condition = statement.condition.get();
        One(*statement.then);
        if (statement.otherwise) {
            const std::size_t skip = Here();
            Add(FlowStep::Kind::Jump, &statement);
            m_steps[test].target = Here();
            One(*statement.otherwise);
            m_steps[skip].target = Here();
        } else {
            m_steps[test].target = Here();
        }
        m_steps[test].resume = Here();
    }

    void While(const tsql::WhileStatement& statement) {
        const std::size_t test = Here();
        m_loops.push_back({test, {}});
        Add(FlowStep::Kind::JumpUnless, &statement).condition = statement.condition.get();
        One(*statement.body);
        Add(FlowStep::Kind::Jump, &statement).target = test;
        for (const std::size_t step : m_loops.back().breaks)
            m_steps[step].target = Here();
        m_loops.pop_back();
        m_steps[test].target = Here();
        m_steps[test].resume = Here();
    }

    void TryCatch(const tsql::TryCatchStatement& statement) {
        const std::size_t begin = Here();
        const std::size_t outer = m_handler;
        m_handler = kFirstMark - m_marks++; // a mark of this block's own, until its handler's place is known
        const std::size_t mark = m_handler;
        List(statement.body);
        m_handler = outer;
        const std::size_t skip = Here();
        Add(FlowStep::Kind::Jump, &statement);
        const std::size_t handler = Here();
        for (std::size_t i = begin; i < skip; ++i) {
            if (m_steps[i].handler == mark)
                m_steps[i].handler = handler;
        }
        ++m_catches;
        List(statement.handler);
        Add(FlowStep::Kind::LeaveCatch, &statement);
        --m_catches;
        m_steps[skip].target = Here();
    }

    struct Loop {
        std::size_t start;
        std::vector<std::size_t> breaks;
    };

    static constexpr std::size_t kFirstMark = FlowStep::none - 1;

    std::vector<FlowStep>& m_steps;
    std::size_t m_handler = FlowStep::none;
    std::size_t m_marks = 0;
    std::size_t m_catches = 0;
    std::vector<Loop> m_loops;
    std::unordered_map<std::string, std::size_t> m_labels;
    std::vector<std::pair<std::size_t, std::string>> m_gotos;
};

FlowProgram::FlowProgram(const tsql::StatementList& statements) {
    FlowBuilder(m_steps).Build(statements);
}

} // namespace quillon::practice
