' Abs keeps the sub-type where the result fits it.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say Abs(-5) '= 5
Say Abs("-3") '= 3
Say TypeName(Abs(-5)) '= Integer
Say TypeName(Abs(-0.5)) '= Double
Say TypeName(Abs(CSng(-1))) '= Single
Say TypeName(Abs("-1")) '= Double
Say TypeName(Abs(True)) '= Integer
Say TypeName(Abs(Empty)) '= Integer
Say TypeName(Abs(CCur(-1))) '= Currency
Say TypeName(Abs(CByte(1))) '= Byte
Say Abs(-32769) '= 32769
Say Abs(-32768) '= 32768
Say ErrorOf("Abs(CInt(-32768))") '= 6
Say ErrorOf("Abs(CLng(""-2147483648""))") '= 6
Say IsNull(Abs(Null)) '= True
Say ErrorOf("Abs(""x"")") '= 13
