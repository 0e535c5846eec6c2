' CLng rounds half to even.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say CLng(0.5) '= 0
Say CLng(1.5) '= 2
Say CLng(-2.5) '= -2
Say CLng("&HFFFF") '= 65535
Say CLng("&HFFFFFFFF") '= -1
Say CLng(CCur(2.5)) '= 2
Say CLng(#1/1/1900#) '= 2
Say TypeName(CLng(1)) '= Long
Say ErrorOf("CLng(2147483648)") '= 6
Say ErrorOf("CLng(""2147483648"")") '= 6
Say ErrorOf("CLng(""1 2"")") '= 13
Say ErrorOf("CLng(Null)") '= 94
