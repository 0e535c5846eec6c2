' Right counts from the end.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say Right("test", 2) '= st
Say Right("test", 5) '= test
Say Right("test", 0) '= ""
Say Right(123, 2) '= 23
Say Right(Empty, 1) '= ""
Say IsNull(Right(Null, 1)) '= True
Say ErrorOf("Right(""abc"", -1)") '= 5
Say ErrorOf("Right(""abc"", Null)") '= 94
