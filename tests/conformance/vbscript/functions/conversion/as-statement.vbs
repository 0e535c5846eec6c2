' What converts is of no use as a statement, which is told after the argument has been looked at.
On Error Resume Next
Call CInt("1")
Say Err.Number, Err.Description '= 458 Variable uses an Automation type not supported in VBScript
CLng "x"
Say Err.Number '= 13
Call CByte(1)
Say Err.Number '= 458
Call CDbl(1)
Say Err.Number '= 458
Err.Clear
Call CBool(1)
Call CStr(1)
Say Err.Number '= 0
x = Randomize(1)
Say Err.Number, TypeName(x) '= 13 Empty
Err.Clear
Randomize 1
Say Err.Number '= 0
