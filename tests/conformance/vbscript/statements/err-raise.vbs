On Error Resume Next
Err.Raise 1234, "here", "my words"
Say Err.Number, Err.Source, Err.Description '= 1234 here my words
Err.Clear
Err.Raise 6
Say Err.Number, Err.Description '= 6 Overflow
Err.Clear
Err.Raise 0
Say Err.Number '= 5
Err.Clear
Err.Raise vbObjectError + 10, "x", "y"
Say Err.Number '= -2147221494
Err.Clear
Err.Raise &H800A000D
Say Err.Number '= 13
Say Err = 13 '= True
Err.Number = 3
Err.Description = "set"
Say Err.Number, Err.Description '= 3 set
Err.Clear
Host.Fail 77
Say Err.Number, Err.Source, Err.Description '= 77 Host the host refused
On Error GoTo 0
Err.Raise 999, "me", "it broke" '! 999 it broke
