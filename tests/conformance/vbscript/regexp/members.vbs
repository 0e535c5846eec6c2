' What a RegExp, its matches and lists refuse.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Set r = New RegExp
r.Global = 1
Say r.Global '= True
r.Global = "False"
Say r.Global '= False
Say ErrorOf("r.Nothing1") '= 438
Say ErrorOf("r.Test()") '= 450
Say ErrorOf("r.Execute(""a"", ""b"")") '= 450
Say ErrorOf("r.Test(Null)") '= 94
Set m = r.Execute("a")
Say ErrorOf("m.Count(1)") '= 450
Say ErrorOf("m(""x"")") '= 13
