' A wrong number of arguments to an intrinsic function is 450.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say ErrorOf("Len()") '= 450
Say ErrorOf("Len(""a"", ""b"")") '= 450
Say ErrorOf("Left(""a"")") '= 450
Say ErrorOf("Now(1)") '= 450
Say ErrorOf("CStr()") '= 450
