' CByte: 0 to 255; True is 255.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say CByte(255.49) '= 255
Say CByte(2.5) '= 2
Say CByte(True) '= 255
Say CByte("7") '= 7
Say CByte("-0.5") '= 0
Say TypeName(CByte(1)) '= Byte
Say ErrorOf("CByte(256)") '= 6
Say ErrorOf("CByte(-1)") '= 6
Say ErrorOf("CByte(""TRUE"")") '= 13
Say ErrorOf("CByte("""")") '= 13
Say ErrorOf("CByte(Null)") '= 94
