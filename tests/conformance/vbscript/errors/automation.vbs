' Automation errors with a number of the language's own are known by that.
On Error Resume Next
Err.Raise &H8007000E
Say Err.Number, Err.Description '= 7 Out of memory
Err.Clear
Err.Raise &H80020005
Say Err.Number '= 13
Err.Raise &H80070005
Say Err.Number '= 70
Err.Raise &H800A01B6
Say Err.Number '= 438
Err.Raise &H80040E14
Say Err.Number '= -2147217900
Err.Raise 65536
Say Err.Number '= 5
Err.Raise 1, "s", "d", "help.chm", 7
Say Err.HelpFile, Err.HelpContext '= help.chm 7
Err.NoMember
Say Err.Number, Err.HelpFile & Err.HelpContext '= 438 0
