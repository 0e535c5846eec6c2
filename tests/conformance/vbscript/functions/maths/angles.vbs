' Sin, Cos, Tan, Atn in radians.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say Sin(0) '= 0
Say Cos(0) '= 1
Say Tan(0) '= 0
Say Round(Atn(1) * 4, 10) '= 3.1415926536
Say Round(Sin(1), 6) '= 0.841471
Say Round(Cos(1), 6) '= 0.540302
Say Round(Tan(1), 6) '= 1.557408
Say Cos(Empty) '= 1
Say TypeName(Sin(1)) '= Double
Say ErrorOf("Sin(Null)") '= 94
Say ErrorOf("Atn(""x"")") '= 13
