' Sqr, Exp, Log.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say Sqr(4) '= 2
Say Sqr("100") '= 10
Say Sqr(False) '= 0
Say TypeName(Sqr(4)) '= Double
Say Exp(0) '= 1
Say Round(Exp(1), 6) '= 2.718282
Say Log(1) '= 0
Say Round(Log(10), 6) '= 2.302585
Say ErrorOf("Sqr(-1)") '= 5
Say ErrorOf("Sqr(True)") '= 5
Say ErrorOf("Log(0)") '= 5
Say ErrorOf("Log(-2)") '= 5
Say ErrorOf("Exp(1000)") '= 6
Say ErrorOf("Sqr(Null)") '= 94
Say ErrorOf("Sqr(""x"")") '= 13
