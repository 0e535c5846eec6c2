' A pattern that would search for ever is given up; deep nesting and long texts are no danger.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Set r = New RegExp
r.Pattern = "^(a+)+$"
Say ErrorOf("r.Test(String(40, ""a"") & ""b"")") '= 5
r.Pattern = "(a|b)*c"
Say r.Test(String(100000, "a") & "c") '= True
r.Pattern = "x*"
Say r.Execute(String(1000000, "x"))(0).Length '= 1000000
r.Pattern = String(1000, "(") & String(1000, ")")
Say ErrorOf("r.Test("""")") '= 28
