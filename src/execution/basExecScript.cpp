#include "execution/basExecScript.h"

#include "execution/clsExecuteSQLScript.h"
#include "shell/Session.h"
#include "shell/Trace.h"

namespace quillon::basExecScript {

void ProcScript(std::string& script, const std::string& name, RunLog& log) {
    g_objTrace->Procedure("basExecScript.ProcScript", [&] {
        AddScriptRunHeader(log, "Running '" + name + "' script...");
        clsExecuteSQLScript executor;
        if (!executor.CreateODBCConnection(g_strServer, g_strDatabase, g_strUser, g_strPassword))
            return;
        if (script.empty())
            AddScriptRunHeader(log, "'" + name + "' script is missing");
        else
            RunScript(executor, script, log);
        AddScriptRunFooter(log);
    });
}

void AddScriptRunHeader(RunLog& log, const std::string& text) {
    log.push_back(text);
}

void AddScriptRunFooter(RunLog& log) {
    log.emplace_back();
}

void RunScript(clsExecuteSQLScript& executor, std::string& script, RunLog& log) {
    g_objTrace->Procedure("basExecScript.RunScript", [&] {
        script += "\r\nGO\r\nUSE [" + g_strDatabase + "]\r\nGO";
        executor.SetScript(script);
        executor.Execute();
        AppendCollection(log, executor.Results());
    });
}

void AppendCollection(RunLog& target, const RunLog& source) {
    target.insert(target.end(), source.begin(), source.end());
}

} // namespace quillon::basExecScript
