' 457 for a key that is there, 32811 for one that is not.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Set d = CreateObject("Scripting.Dictionary")
d.Add "a", 1
Say ErrorOf("d.Add(""a"", 2)") '= 457
Say ErrorOf("d.Remove(""b"")") '= 32811
Say ErrorOf("d.Unknown") '= 438
Say ErrorOf("d.Add(""x"")") '= 450
Say ErrorOf("d.Count(1)") '= 450
Say ErrorOf("d.Exists()") '= 450
On Error Resume Next
d.Key("zzz") = "y"
Say Err.Number '= 32811
Err.Clear
d.Count = 5
Say Err.Number '= 451
Err.Clear
d.Add "b", 2
d.Key("a") = "b"
Say Err.Number '= 457
