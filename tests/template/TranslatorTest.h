// What tests of the translator share: files in memory, a trace, and a run of all its steps.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/Platform.h"
#include "shell/Session.h"
#include "shell/Trace.h"
#include "support/FaultyServices.h"
#include "support/ManualClock.h"
#include "support/MemoryFiles.h"
#include "support/ScriptedFrontEnd.h"
#include "template/basNewTemplate.h"
#include "template/basProcTemplate.h"

namespace quillon::tests {

class TranslatorTest : public testing::Test {
  protected:
    TranslatorTest() { g_objTrace = std::make_unique<Trace>(); }
    ~TranslatorTest() override {
        g_objTrace.reset();
        g_bolJScript = false;
    }

    void WriteTemplate(std::string text) { memory.Contents["\\app\\template.txt"] = std::move(text); }
    std::string Output() const { return memory.Contents.at("\\app\\output.txt"); }

    // The body as a run gets it, after both passes.
    std::string Body(std::string text) {
        WriteTemplate(std::move(text));
        std::string body = basNewTemplate::ProcessFile();
        basNewTemplate::ProcessScript(body);
        return body;
    }

    void ExpectWarning(const std::string& line) {
        frontEnd.ExpectMessage("Line can not be interpreted\r\n\r\n" + line, "Syntax warning", Icon::Warning);
    }

    MemoryFiles memory;
    FaultPlan plan;
    FaultyFiles files{memory, plan};
    ScriptedFrontEnd frontEnd;
    ManualClock clock;
    Platform platform{{.frontEnd = &frontEnd, .files = &files, .clock = &clock}};
};

} // namespace quillon::tests
