' The engine names itself.
Say ScriptEngine '= VBScript
Say ScriptEngineMajorVersion '= 5
Say ScriptEngineMinorVersion '= 8
Say TypeName(ScriptEngineMajorVersion) '= Long
Say TypeName(ScriptEngineBuildVersion) '= Long
