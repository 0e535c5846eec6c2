' CInt rounds half to even.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say CInt(0.5) '= 0
Say CInt(1.5) '= 2
Say CInt(2.5) '= 2
Say CInt(-36.5) '= -36
Say CInt(-36.75) '= -37
Say CInt("2.5") '= 2
Say CInt(True) '= -1
Say CInt(Empty) '= 0
Say CInt("&HFFFF") '= -1
Say CInt("1,000") '= 1000
Say CInt(" 5 ") '= 5
Say TypeName(CInt(1.2)) '= Integer
Say ErrorOf("CInt(32767.5)") '= 6
Say ErrorOf("CInt(""40000"")") '= 6
Say ErrorOf("CInt(""abc"")") '= 13
Say ErrorOf("CInt("""")") '= 13
Say ErrorOf("CInt(Null)") '= 94
Say ErrorOf("CInt(Nothing)") '= 91
Say ErrorOf("CInt(Array(1))") '= 13
