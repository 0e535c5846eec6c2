#include "support/FaultPlan.h"

namespace quillon::tests {

void FaultPlan::FailAt(const std::string& operation, int nth, Failure failure) {
    m_faults.insert({operation, {false, nth, std::move(failure)}});
}

void FaultPlan::FailAlways(const std::string& operation, Failure failure) {
    m_faults.insert({operation, {true, 0, std::move(failure)}});
}

void FaultPlan::Forget() {
    m_faults.clear();
}

void FaultPlan::Ask(const std::string& operation, const std::string& detail) {
    ++m_calls[operation];
    Log.push_back(detail.empty() ? operation : operation + " " + detail);
    const auto [begin, end] = m_faults.equal_range(operation);
    auto due = end;
    for (auto fault = begin; fault != end; ++fault)
        if (fault->second.always || --fault->second.callsLeft == 0)
            due = fault;
    if (due == end)
        return;
    const Failure failure = due->second.failure;
    if (!due->second.always)
        m_faults.erase(due);
    throw failure;
}

int FaultPlan::Calls(const std::string& operation) const {
    const auto found = m_calls.find(operation);
    return found == m_calls.end() ? 0 : found->second;
}

} // namespace quillon::tests
