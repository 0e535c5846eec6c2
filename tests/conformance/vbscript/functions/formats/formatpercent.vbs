' FormatPercent multiplies by 100.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say FormatPercent(0.1234) '= 12.34%
Say FormatPercent(12.5, 0) '= 1,250%
Say FormatPercent(-0.5, 1) '= -50.0%
Say FormatPercent(-0.255, 1, vbTrue, vbTrue) '= (25.5%)
Say FormatPercent(0.005, 0, 0) '= 1%
Say FormatPercent(1) '= 100.00%
Say ErrorOf("FormatPercent(Null)") '= 13
Say ErrorOf("FormatPercent(0.1, Null)") '= 94
