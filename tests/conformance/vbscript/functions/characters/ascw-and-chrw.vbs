' AscW and ChrW count UTF-16 units; codes above 32767 are negative Integers.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say AscW("A") '= 65
Say AscW(ChrW(8364)) '= 8364
Say AscW(ChrW(40000)) '= -25536
Say ChrW(-25536) = ChrW(40000) '= True
Say ChrW(65535) = ChrW(-1) '= True
Say TypeName(AscW("a")) '= Integer
Say ErrorOf("AscW("""")") '= 5
Say ErrorOf("ChrW(65536)") '= 5
Say ErrorOf("ChrW(-32769)") '= 5
