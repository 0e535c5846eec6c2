' Rnd is the documented generator: the first numbers are always the same.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say Rnd(0) = CSng(327680 / 16777216) '= True
Say Rnd '= 0.7055475
Say Rnd(1) '= 0.533424
Say Rnd '= 0.5795186
Say Rnd(0) '= 0.5795186
Say Rnd(-1) = Rnd(-1) '= True
Say Rnd(-1) = Rnd(-2) '= False
Say Rnd(-1) '= 0.224007
Say TypeName(Rnd) '= Single
Say ErrorOf("Rnd(Null)") '= 94
