// What tests of script runs share: the platform of doubles, and a connection on which statements are answered
// as the test says.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Platform.h"
#include "shell/Session.h"
#include "shell/SessionRoads.h"
#include "shell/Trace.h"
#include "support/FakeDataAccess.h"
#include "support/FaultyDataAccess.h"
#include "support/ScriptedFrontEnd.h"

namespace quillon::tests {

using Lines = std::vector<std::string>;

class ExecutionTest : public testing::Test {
  protected:
    ExecutionTest() { g_objTrace = std::make_unique<Trace>(); }
    ~ExecutionTest() override {
        g_objTrace.reset();
        g_strServer = g_strDatabase = g_strUser = g_strPassword = {};
        TheRoads() = SessionRoads();
    }

    // A result of one column and one row.
    static FakeResult One(const char* column, Value value) { return {{column}, {{std::move(value)}}}; }
    static std::string Padded(const std::string& text) { return text + std::string(30 - text.size(), ' '); }

    FaultPlan plan;
    ScriptedFrontEnd frontEnd;
    FakeDataAccess data;
    FaultyDataAccess faultyData{data, plan};
    Platform platform{{.frontEnd = &frontEnd, .dataAccess = &faultyData}};
};

} // namespace quillon::tests
