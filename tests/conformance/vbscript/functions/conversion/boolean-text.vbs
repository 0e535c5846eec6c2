' A number converted from the text of a Boolean is a type mismatch.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say ErrorOf("CInt(""True"")") '= 13
Say ErrorOf("CDbl(""False"")") '= 13
Say CLng(CBool("True")) '= -1
