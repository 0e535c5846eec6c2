// What tests of a template run share: the template editor over the real script host, files in memory, a model
// of two tables.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "adapters/script/ScriptControl.h"
#include "adapters/xml/Library.h"
#include "architecture/clsQlnTemplate.h"
#include "model/AuditObj.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Platform.h"
#include "shell/ScreenInstances.h"
#include "shell/Session.h"
#include "shell/Trace.h"
#include "support/FaultyServices.h"
#include "support/MemoryFiles.h"
#include "support/MemorySettings.h"
#include "support/ScriptedFrontEnd.h"
#include "template/basLanguages.h"
#include "template/frmTemplate.h"

namespace quillon::tests {

class RunTest : public testing::Test {
  protected:
    RunTest() {
        Forget();
        g_objTrace = std::make_unique<Trace>();
        g_objAudit = std::make_shared<AuditObj>();
        g_strArchFile = "\\p\\sales.qlnx";
        for (const char* name : {"Country", "Order"}) {
            const auto table = g_objAudit->Database()->Tables()->Add(name, "dbo", {});
            table->SetAudit4Insert(true);
        }
        basLanguages::RegisterLanguages(true);
        plan.Log.clear();
    }
    ~RunTest() override { Forget(); }

    frmTemplate& Form() { return TheScreen<frmTemplate>(); }
    Editor& Tab(frmTemplate::Tab tab) { return Form().cdmCodeMax[tab]; }
    const std::string& Source() { return Tab(frmTemplate::ScriptTab).Text(); }
    const std::string& Results() { return Tab(frmTemplate::ResultsTab).Text(); }
    // The text of the marked line of the script.
    std::string MarkedLine() {
        Editor& source = Tab(frmTemplate::ScriptTab);
        return source.HighlightedLine() < 0 ? "(none)" : source.LineText(source.HighlightedLine());
    }

    // Both forms: the translator's and the host's language.
    void UseJScript() {
        g_bolJScript = true;
        settings.Set("ScriptingLanguage", "1");
    }

    std::int32_t Run(const std::string& text) {
        Form().Load();
        Tab(frmTemplate::TemplateTab).SetText(text);
        return Form().ProcessTemplate();
    }
    // Gives the model an include file of this text.
    void Include(const std::string& file, const std::string& text) {
        memory.Contents["\\p\\" + file] = text;
        g_objAudit->Includes()->Add(file);
    }
    // The profile of a generation run, with this template.
    void UseProfile(const std::string& text) {
        memory.Contents["\\p\\sales.qlnx"] =
            "<template><header><name>n</name><scriptlanguage>VBScript</scriptlanguage></header><includes/>"
            "<templatecode><![CDATA[" +
            text + "]]></templatecode></template>";
        g_objArch = std::make_shared<clsQlnTemplate>();
        g_objArch->Load("\\p\\sales.qlnx");
    }
    void ExpectScriptError(const std::string& report) {
        frontEnd.ExpectMessage(report, "Template Syntax Error", Icon::Warning);
    }
    bool Exists(const std::string& path) const { return memory.Contents.contains(path); }

    FaultPlan plan;
    MemoryFiles memory;
    FaultyFiles files{memory, plan};
    MemorySettings settings;
    ScriptedFrontEnd frontEnd;
    adapters::XmlLibrary xml;
    Platform platform{PlatformServices{
        .frontEnd = &frontEnd,
        .files = &files,
        .settings = &settings,
        .xml = &xml,
        .newScriptHost = [] { return std::make_unique<adapters::ScriptControl>(); },
    }};

  private:
    static void Forget() {
        ForgetScreen<frmTemplate>();
        g_objTrace.reset();
        g_objAudit.reset();
        g_objArch.reset();
        g_strArchFile.clear();
        g_bolJScript = false;
    }
};

} // namespace quillon::tests
