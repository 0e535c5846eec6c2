#include "practice/statements/PlanShapes.h"

#include "practice/statements/Plan.h"

namespace quillon::practice {

std::unique_ptr<tsql::Attachment>& PlanShapes::Slot(const std::string& shape) {
    constexpr std::size_t mostPlans = 200;
    if (m_plans.size() >= mostPlans)
        std::erase_if(m_plans, [](const auto& entry) {
            const auto* plan = dynamic_cast<const Plan*>(entry.second.get());
            return plan == nullptr || !plan->inUse;
        });
    return m_plans[shape];
}

} // namespace quillon::practice
