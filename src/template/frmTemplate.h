// The template editor, and the run of one template for one table.
//
// One instance serves the user and, hidden, the generation run. What it holds today is what a run needs: four
// editors under a tab strip, the status bar, the properties grid's place, and the script host.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/controls.h"

namespace quillon {

class Failure;
class ScriptHost;
struct ScriptError;

class frmTemplate : public Screen {
  public:
    enum Tab { TemplateTab, IncludeTab, ScriptTab, ResultsTab, TabCount };

    frmTemplate();
    ~frmTemplate() override;

    TabStrip Tabstrip1{*this, "Tabstrip1"};
    ControlArray<Editor, TabCount> cdmCodeMax{*this, "cdmCodeMax"};
    Grid grxProperties{*this, "grxProperties"};
    StatusBar stbStatus{*this, "stbStatus"};

    // Runs the template in the first editor: 0, or the number of the failure, which the user has then been
    // told. The text that the script returned is in the Results editor, the script with its includes in the
    // Script Source editor.
    std::int32_t ProcessTemplate();

    // One table of a generation run: the profile's template, its result appended to triggers.sql in the
    // application folder, which the first table's success empties before. Non-zero tells the caller to stop
    // its loop.
    std::int32_t ProcessTemplateBatch(bool isFirstTable, const std::string& table);

    void UpdateStatusBar_WithLanguage();

    // The report of a script's failure, from the host's details.
    static std::string ProcessError(const ScriptError& error);

  protected:
    void Form_Load() override;

  private:
    // The include text that stands in front of the script, and its lines.
    struct Includes {
        std::string text;
        std::int32_t lines = 0;
    };

    void Tabstrip1_Click();
    void SaveScratch();
    void PrepareHost();
    std::string Translate();
    void Run(Includes& includes);
    void ReportScriptFailure(const Failure& failure, const Includes& includes);
    void AppendResult(bool isFirstTable, const std::string& table);

    std::unique_ptr<ScriptHost> m_scriptControl;
    int m_selectedTab = TemplateTab;
};

} // namespace quillon
