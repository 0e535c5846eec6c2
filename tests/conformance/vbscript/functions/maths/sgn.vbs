' Sgn is an Integer; Null is 94.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say Sgn(-2.5) '= -1
Say Sgn(0) '= 0
Say Sgn(7) '= 1
Say Sgn("-1") '= -1
Say Sgn(True) '= -1
Say Sgn(Empty) '= 0
Say TypeName(Sgn(0.5)) '= Integer
Say ErrorOf("Sgn(Null)") '= 94
Say ErrorOf("Sgn(""x"")") '= 13
