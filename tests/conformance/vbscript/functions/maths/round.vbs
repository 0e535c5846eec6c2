' Round goes half to even.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say Round(0.5) '= 0
Say Round(1.5) '= 2
Say Round(2.5) '= 2
Say Round(-3.5) '= -4
Say Round(2.675, 2) '= 2.68
Say Round(1234.5678, 2) '= 1234.57
Say Round(2.125, 2) '= 2.12
Say Round(CCur(2.55), 1) '= 2.6
Say Round(CCur(2.45), 1) '= 2.4
Say Round("2.5") '= 2
Say Round(True) '= True
Say Round(7) '= 7
Say TypeName(Round(7)) '= Integer
Say TypeName(Round(2.5)) '= Double
Say TypeName(Round(CCur(2.5))) '= Currency
Say IsNull(Round(Null)) '= True
Say ErrorOf("Round(1.5, -1)") '= 5
Say ErrorOf("Round(1.5, 23)") '= 5
Say ErrorOf("Round(""x"")") '= 13
