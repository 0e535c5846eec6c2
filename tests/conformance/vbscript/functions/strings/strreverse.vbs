' StrReverse turns any value's text around.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say StrReverse("test") '= tset
Say StrReverse("") '= ""
Say StrReverse(123) '= 321
Say StrReverse(True) '= eurT
Say ErrorOf("StrReverse(Null)") '= 94
