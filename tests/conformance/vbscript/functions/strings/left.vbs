' Left takes what there is; a length below 0 is 5, Null 94.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say Left("test", 2) '= te
Say Left("test", 5) '= test
Say Left("test", 0) '= ""
Say Left(123, 2) '= 12
Say Left("123456", 1.5) '= 12
Say Left("123456", 2.5) '= 12
Say Left("test", "2") '= te
Say Left(True, 2) '= Tr
Say IsNull(Left(Null, 1)) '= True
Say ErrorOf("Left(""abc"", -1)") '= 5
Say ErrorOf("Left(""abc"", Null)") '= 94
Say ErrorOf("Left(""abc"", ""x"")") '= 13
Say ErrorOf("Left(Null, -1)") '= 5
