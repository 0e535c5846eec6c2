' FormatNumber rounds half away from zero; groups and leading zero by default.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say FormatNumber(1234.567) '= 1,234.57
Say FormatNumber(2.5, 0) '= 3
Say FormatNumber(-2.5, 0) '= -3
Say FormatNumber(1.005, 2) '= 1.01
Say FormatNumber(0.5, 2) '= 0.50
Say FormatNumber(0.5, 2, 0) '= .50
Say FormatNumber(0.5, 2, vbFalse) '= .50
Say FormatNumber(-1234.567, 1, -2, -1) '= (1,234.6)
Say FormatNumber(1234, 2, -1, 0, 0) '= 1234.00
Say FormatNumber(1234567.891, 1, , , vbTrue) '= 1,234,567.9
Say FormatNumber(999.995, 2) '= 1,000.00
Say FormatNumber(0) '= 0.00
Say FormatNumber(1, -1) '= 1.00
Say FormatNumber("12.5") '= 12.50
Say FormatNumber(CCur("922337203685477.5807"), 4) '= 922,337,203,685,477.5807
Say FormatNumber(1e15, 0) '= 1,000,000,000,000,000
Say FormatNumber(Empty) '= 0.00
Say FormatNumber(0, 0) '= 0
Say ErrorOf("FormatNumber(Null)") '= 13
Say ErrorOf("FormatNumber(""abc"")") '= 13
Say ErrorOf("FormatNumber(1, Null)") '= 94
Say ErrorOf("FormatNumber(1, 300)") '= 5
