' There is one locale, en-US.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say GetLocale '= 1033
Say SetLocale(1033) '= 1033
Say SetLocale("en-us") '= 1033
Say ErrorOf("SetLocale(""de"")") '= 447
Say ErrorOf("SetLocale(1031)") '= 447
Say GetLocale '= 1033
