' CStr of every sub-type.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say CStr(1/3) '= 0.333333333333333
Say CStr(0.1 + 0.2) '= 0.3
Say CStr(1e14) '= 100000000000000
Say CStr(1e15) '= 1E+15
Say CStr(1/30) '= 3.33333333333333E-02
Say CStr(0.00001) '= 0.00001
Say CStr(123456789012345678) '= 1.23456789012346E+17
Say CStr(-1.5e300) '= -1.5E+300
Say CStr(CSng(1/3)) '= 0.3333333
Say CStr(CSng(10000000)) '= 1E+07
Say CStr(CCur(1.25)) '= 1.25
Say CStr(True) '= True
Say CStr(Empty) = "" '= True
Say CStr(#2/28/2004 1:05:00 PM#) '= 2/28/2004 1:05:00 PM
Say CStr(#2/28/2004#) '= 2/28/2004
Say CStr(#1:05:00 PM#) '= 1:05:00 PM
Say CStr(CByte(7)) '= 7
Say TypeName(CStr(1)) '= String
Say ErrorOf("CStr(Null)") '= 94
Say ErrorOf("CStr(Nothing)") '= 91
Say ErrorOf("CStr(Array(1))") '= 13
