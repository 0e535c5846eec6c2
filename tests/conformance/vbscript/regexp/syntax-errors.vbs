' A bad pattern fails when it is used, with the number for what is wrong.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Set r = New RegExp
r.Pattern = "["
Say ErrorOf("r.Test(""x"")") '= 5019
r.Pattern = "[a"
Say ErrorOf("r.Execute(""x"")") '= 5019
r.Pattern = "("
Say ErrorOf("r.Test(""x"")") '= 5020
r.Pattern = "(?:a"
Say ErrorOf("r.Replace(""x"", ""y"")") '= 5020
r.Pattern = "*a"
Say ErrorOf("r.Test(""x"")") '= 5018
r.Pattern = "a**"
Say ErrorOf("r.Test(""x"")") '= 5018
r.Pattern = "(?a)"
Say ErrorOf("r.Test(""x"")") '= 5018
r.Pattern = "[z-a]"
Say ErrorOf("r.Test(""x"")") '= 5021
r.Pattern = "a)"
Say ErrorOf("r.Test(""x"")") '= 5017
r.Pattern = "\"
Say ErrorOf("r.Test(""x"")") '= 5017
r.Pattern = "a{2,1}"
Say ErrorOf("r.Test(""x"")") '= 5017
r.Pattern = "ok"
Say r.Test("ok") '= True
