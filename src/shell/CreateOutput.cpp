#include "shell/CreateOutput.h"

#include <algorithm>

#include "execution/basExecScript.h"
#include "execution/frmResults.h"
#include "execution/frmScriptResults.h"
#include "model/basLoadMetaData.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Files.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/ScreenInstances.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/Trace.h"
#include "shell/frmMain.h"

namespace quillon::basDbaseFunctions {
namespace {

enum HandOff : std::int32_t { QueryAnalyzer = 0, OwnEditor = 1 };

std::string AnalyzerCommand() {
    const std::string login = g_strUser.empty() ? " -E" : " -U " + g_strUser + " -P " + g_strPassword;
    return "isqlw -S " + g_strServer + " -d " + g_strDatabase + login + " -f \"" + g_strOutputFile + '"';
}

// Programs of every operating system take a path with slashes.
std::string OwnProgramCommand(const std::string& program) {
    std::string path = g_strOutputFile;
    std::ranges::replace(path, '\\', '/');
    return program + " \"" + path + '"';
}

void OpenInQueryProgram() {
    const std::string program = settings::Read(settings::QueryProgram);
    try {
        ThePlatform().frontEnd().StartProgram(
            program.empty() ? AnalyzerCommand() : OwnProgramCommand(program), WindowStyle::MinimisedFocus);
    } catch (const Failure& failure) {
        if (failure.number() != numbers::FileNotFound)
            throw;
        ThePlatform().frontEnd().Message(
            (program.empty() ? "Microsoft SQL Server Query-Analyzer (isqlw)" : program) +
                " cannot be started on this machine.\r\n\r\nThe script is complete and lies here:\r\n" +
                g_strOutputFile +
                "\r\n\r\nRun it there with a query program of your own, name one in the setting "
                "QueryProgram, or "
                "choose another way in Options, View Scripts with.",
            "Query Program", Icon::Warning);
    }
}

std::string ReadOutputFile() {
    const auto input = ThePlatform().files().OpenInput(g_strOutputFile);
    std::string text;
    for (std::string line; input->ReadLine(line);) {
        ThePlatform().frontEnd().DoEvents();
        text += line + "\r\n";
    }
    return text;
}

void ExecuteOutput() {
    frmMain& main = TheScreen<frmMain>();
    main.stbStatus.SetPanel(frmMain::ProgressPanel, "Executing SQL ...");
    main.ProgressBar1.SetValue(0);
    main.Repaint();
    std::string script = ReadOutputFile();
    RunLog log;
    basExecScript::ProcScript(script, "Audit Triggers", log);
    TheScreen<frmScriptResults>().ShowScriptResults(log);
    basLoadMetaData::ReloadTriggers();
}

} // namespace

void CreateOutput() {
    g_objTrace->Procedure("basDbaseFunctions.CreateOutput", [] {
        g_strOutputFile = ThePlatform().files().ApplicationFolder() + "\\triggers.sql";
        switch (settings::ReadLong(settings::Editor)) {
        case QueryAnalyzer: OpenInQueryProgram(); break;
        case OwnEditor: TheScreen<frmResults>().ShowModal(); break;
        default: ExecuteOutput(); break;
        }
    });
}

} // namespace quillon::basDbaseFunctions
