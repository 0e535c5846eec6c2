// Plans which platform operation fails, and keeps the log of all that were called.
//
//     FaultPlan plan;
//     FaultyFiles files(memoryFiles, plan);
//     plan.FailAt("Files.OpenOutput", 2, Failure(numbers::DiskFull));
//
// Operations are named interface.member. The wrappers in Faulty*.h ask the plan before each call, so a call
// that fails here has done nothing.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/Failure.h"

namespace quillon::tests {

class FaultPlan {
  public:
    // The nth call from now on, from 1, fails; every later one works again.
    void FailAt(const std::string& operation, int nth, Failure failure);
    // Every call from now on fails.
    void FailAlways(const std::string& operation, Failure failure);
    // What was planned is forgotten; counts and log stay.
    void Forget();

    // For the wrappers: the operation is about to be done.
    void Ask(const std::string& operation, const std::string& detail = {});

    int Calls(const std::string& operation) const;
    // Operations in order, each followed by a blank and its detail where it has one.
    std::vector<std::string> Log;

  private:
    struct Fault {
        bool always;
        int callsLeft;
        Failure failure;
    };
    std::multimap<std::string, Fault> m_faults;
    std::map<std::string, int> m_calls;
};

} // namespace quillon::tests
