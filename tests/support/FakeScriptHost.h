// A script host that runs nothing: it writes into the plan's log what it is told, fails where the plan says
// so, and answers with what the test set.
//
//     FakeScript script{plan};
//     script.Result = Value("CREATE TRIGGER ...");
//     platform.newScriptHost = [&] { return std::make_unique<FakeScriptHost>(script); };
//
// Operations "ScriptHost.member", with the language, name or text as detail.
#pragma once

#include "platform/ScriptHost.h"
#include "support/FaultPlan.h"

namespace quillon::tests {

// What all hosts made from it share; outlives them.
struct FakeScript {
    FaultPlan& plan;
    Value Result;        // of Run and Eval
    ScriptError Details; // what Error says, whatever happens
};

class FakeScriptHost : public ScriptHost {
  public:
    explicit FakeScriptHost(FakeScript& script)
        : m_script(script) {}

    void Reset() override { m_script.plan.Ask("ScriptHost.Reset"); }
    std::string Language() const override { return m_language; }
    void SetLanguage(std::string_view name) override {
        m_script.plan.Ask("ScriptHost.SetLanguage", std::string(name));
        m_language = name;
    }
    void AddObject(std::string_view name, ObjectRef, bool addMembers) override {
        m_script.plan.Ask("ScriptHost.AddObject", std::string(name) + (addMembers ? " with members" : ""));
    }
    void AddCode(std::string_view text) override {
        m_script.plan.Ask("ScriptHost.AddCode", std::string(text));
    }
    Value Run(std::string_view procedure, std::span<Value>) override {
        m_script.plan.Ask("ScriptHost.Run", std::string(procedure));
        return m_script.Result;
    }
    Value Eval(std::string_view expression) override {
        m_script.plan.Ask("ScriptHost.Eval", std::string(expression));
        return m_script.Result;
    }
    const ScriptError& Error() const override { return m_script.Details; }
    void Stop() override { m_script.plan.Ask("ScriptHost.Stop"); }

  private:
    FakeScript& m_script;
    std::string m_language;
};

} // namespace quillon::tests
