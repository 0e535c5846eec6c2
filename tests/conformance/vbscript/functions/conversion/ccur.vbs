' CCur keeps four decimals.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say CCur("1.23456") '= 1.2346
Say CCur(1.5) '= 1.5
Say CCur("922337203685477.5807") '= 922337203685477.5807
Say CCur("0.00005") '= 0
Say CCur("0.00015") '= 0.0002
Say TypeName(CCur(1)) '= Currency
Say ErrorOf("CCur(922337203685478)") '= 6
Say ErrorOf("CCur(""x"")") '= 13
