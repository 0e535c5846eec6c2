// The VBScript engine as a script host (platform/ScriptHost.h): one module that texts are added to.
//
// A failure of AddCode, Run or Eval leaves as Failure, and Error holds its details until the next successful
// call. A stop flag ends a script with numbers::ScriptStopped; it may be set from another thread. Everything
// else belongs to one thread. The site must outlive the host; objects given to it are let go of by Reset.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/ScriptHost.h"

namespace quillon::vbscript {

class Machine;

class VbScriptHost final : public ScriptHost {
  public:
    // `site` shows the boxes of MsgBox and InputBox; without one they raise 5.
    explicit VbScriptHost(ScriptSite* site = nullptr);
    ~VbScriptHost() override;

    void Reset() override;
    std::string Language() const override { return m_hasLanguage ? "VBScript" : ""; }
    void SetLanguage(std::string_view name) override;
    void AddObject(std::string_view name, ObjectRef object, bool addMembers = false) override;
    void AddCode(std::string_view text) override;
    Value Run(std::string_view procedure, std::span<Value> arguments = {}) override;
    Value Eval(std::string_view expression) override;
    const ScriptError& Error() const override { return m_error; }
    void Stop() override;

    // Ends scripts after about so many backward jumps and calls, as Stop does; 0: no limit.
    void SetStepLimit(std::uint64_t steps);

    // The line of the statement that runs now, for who is called by it; 0 outside a run.
    std::int32_t CurrentLine() const noexcept;

  private:
    template <class Work>
    auto Guarded(std::string_view text, Work work);
    void RequireLanguage() const;

    std::unique_ptr<Machine> m_machine;
    ScriptError m_error;
    bool m_hasLanguage = false;
};

} // namespace quillon::vbscript
