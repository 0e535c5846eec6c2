' FormatCurrency puts negative amounts in brackets.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say FormatCurrency(1234.5) '= $1,234.50
Say FormatCurrency(-1234.5) '= ($1,234.50)
Say FormatCurrency(-1234.5, 2, -2, 0) '= -$1,234.50
Say FormatCurrency(0.5, 2, 0) '= $.50
Say FormatCurrency(1234.567, 0) '= $1,235
Say ErrorOf("FormatCurrency(Null)") '= 13
Say ErrorOf("FormatCurrency(""x"")") '= 13
Say ErrorOf("FormatCurrency(1, 0, Null)") '= 94
