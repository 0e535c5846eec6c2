#include "template/frmTemplate.h"

#include "model/AuditObj.h"
#include "model/faces/ModelFaces.h"
#include "platform/Conversion.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Files.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "platform/ScriptHost.h"
#include "shell/Session.h"
#include "shell/Trace.h"
#include "template/CodeBox.h"
#include "template/ProcessInclude.h"
#include "template/ScriptLanguage.h"
#include "template/basLanguagesScripting.h"
#include "template/basNewTemplate.h"
#include "template/basProcTemplate.h"
#include "template/basStringFunctions.h"

namespace quillon {

frmTemplate::frmTemplate()
    : Screen("frmTemplate") {
    Tabstrip1.SetTabs({{"Template", "Template"},
                       {"Include", "Include File"},
                       {"Script Source", "Underlying source for script output"},
                       {"Results", "Results"}});
    Tabstrip1.OnClick = [this] { Tabstrip1_Click(); };
}

frmTemplate::~frmTemplate() = default;

void frmTemplate::Form_Load() {
    g_objTrace->Procedure("frmTemplate.Form_Load", [this] {
        PrepareHost();
        basLanguagesScripting::SetScriptingLanguage(*this);
        basLanguagesScripting::SetResultsLanguage(*this);
        Tabstrip1_Click();
    });
}

void frmTemplate::Tabstrip1_Click() {
    m_selectedTab = Tabstrip1.Selected();
    for (Editor& editor : cdmCodeMax)
        editor.SetVisible(editor.Index() == m_selectedTab);
}

void frmTemplate::UpdateStatusBar_WithLanguage() {
    stbStatus.SetPanel(2, "Scripting Language: " + GetScriptLanguageName() + "  ");
}

void frmTemplate::SaveScratch() {
    const auto file = ThePlatform().files().OpenOutput(basNewTemplate::TemplateFile());
    file->Write(cdmCodeMax[TemplateTab].Text());
    file->Close();
}

void frmTemplate::PrepareHost() {
    if (!m_scriptControl)
        m_scriptControl = ThePlatform().NewScriptHost();
    m_scriptControl->Reset();
    m_scriptControl->SetLanguage(GetScriptLanguageName());
    m_scriptControl->AddObject("objAudit", FaceOf(g_objAudit));
    m_scriptControl->AddObject("CodeBox", MakeCodeBox(cdmCodeMax[static_cast<std::size_t>(m_selectedTab)]));
}

std::string frmTemplate::Translate() {
    std::string script = basNewTemplate::ProcessFile();
    basNewTemplate::ProcessScript(script);
    basProcTemplate::WrapCodeForExec(script);
    return script;
}

// The order of the steps is what a failure leaves behind. The script stands in its editor, includes in front,
// before the host sees it: the line that a syntax error marks is then a line of that very text.
void frmTemplate::Run(Includes& includes) {
    Editor& source = cdmCodeMax[ScriptTab];
    SaveScratch();
    ThePlatform().files().ChangeFolder(basStringFunctions::JustFilePath(g_strArchFile));
    PrepareHost();
    const std::string script = Translate();
    source.SetText(script);
    if (TheModel().Includes()->Count() > 0) {
        const auto number = basProcTemplate::ProcessInclude(includes.text, *m_scriptControl, includes.lines);
        if (number != 0) {
            source.SetText(includes.text);
            throw Failure(number);
        }
        source.SetText(includes.text + script);
    }
    m_scriptControl->AddCode(script);
    const Value result =
        g_bolJScript ? m_scriptControl->Eval("ReturnThis(1)") : m_scriptControl->Run("ReturnThis");
    cdmCodeMax[ResultsTab].SetText(conversion::ToText(result));
    Tabstrip1.Select(ResultsTab);
    UpdateStatusBar_WithLanguage();
}

std::int32_t frmTemplate::ProcessTemplate() {
    return g_objTrace->Procedure("frmTemplate.ProcessTemplate", [this]() -> std::int32_t {
        ThePlatform().frontEnd().SetPointer(Pointer::Hourglass);
        Load();
        std::int32_t number = 0;
        Includes includes;
        cdmCodeMax[ResultsTab].SetText("");
        const bool modified = cdmCodeMax[TemplateTab].Modified();
        try {
            Run(includes);
        } catch (const Failure& failure) {
            number = failure.number();
            ReportScriptFailure(failure, includes);
        }
        cdmCodeMax[TemplateTab].SetModified(modified);
        return number;
    });
}

std::string frmTemplate::ProcessError(const ScriptError& error) {
    return "Error Number: " + std::to_string(error.Number) + "\r\nError Description: " + error.Description +
           "\r\nError Line: " + std::to_string(error.Line) + "\r\n" +
           (error.Text.empty() ? std::string() : "Error Text: " + error.Text);
}

// The report comes from the host, whatever failed: a failure that is not the script's shows the host's last
// state.
void frmTemplate::ReportScriptFailure(const Failure& failure, const Includes& includes) {
    const ScriptError error = m_scriptControl ? m_scriptControl->Error() : ScriptError{};
    std::string report = ProcessError(error);
    if (failure.number() == numbers::NotACollection) {
        // A write to a read-only member of the object model comes with this number; say what it means here.
        constexpr std::string_view hostWords = "Object not a collection: ";
        for (auto at = report.find(hostWords); at != std::string::npos; at = report.find(hostWords, at))
            report.replace(at, hostWords.size(), "Property is Read-Only: ");
    }
    ThePlatform().frontEnd().Message(report, "Template Syntax Error", Icon::Warning);
    IgnoringFailures([&] {
        Editor& source = cdmCodeMax[ScriptTab];
        const std::int32_t line = includes.lines + error.Line - 1;
        if (source.LineCount() < line)
            return;
        source.SetHighlightedLine(line);
        Tabstrip1.Select(ScriptTab);
        source.GoToLine(line);
    });
}

} // namespace quillon
