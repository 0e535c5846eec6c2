// The script host that the system is given: it picks the engine by Language.
//
// One engine at a time. Naming the other language gives up the first one's code and objects; naming the same
// one again changes nothing. Error is one object for the control's life, whichever engine runs. While a
// script runs, Reset and a change of language raise 5. Stop may be called from any thread; everything else
// belongs to one.
#pragma once

#include <memory>
#include <mutex>

#include "platform/ScriptHost.h"

namespace quillon::vbscript {
class ObjectRegistry;
}

namespace quillon::adapters {

class ScriptControl final : public ScriptHost {
  public:
    // `site` shows the boxes that VBScript code asks for, and must outlive the control; without one they
    // raise 5.
    explicit ScriptControl(ScriptSite* site = nullptr);
    ~ScriptControl() override;

    void Reset() override;
    std::string Language() const override { return m_language; }
    void SetLanguage(std::string_view name) override;
    void AddObject(std::string_view name, ObjectRef object, bool addMembers = false) override;
    void AddCode(std::string_view text) override;
    Value Run(std::string_view procedure, std::span<Value> arguments = {}) override;
    Value Eval(std::string_view expression) override;
    const ScriptError& Error() const override { return m_error; }
    void Stop() override;

  private:
    ScriptHost& Engine() const;
    std::unique_ptr<ScriptHost> EngineFor(const std::string& language);
    template <class Work>
    auto Entry(Work work);

    ScriptSite* m_site;
    std::string m_language;
    std::unique_ptr<vbscript::ObjectRegistry> m_borrowed; // what JScript has made of VBScript's objects
    std::mutex m_engineChange;                            // Stop must not meet an engine that goes
    std::unique_ptr<ScriptHost> m_engine;
    ScriptError m_error;
    int m_running = 0;
};

} // namespace quillon::adapters
