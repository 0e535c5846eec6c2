' CDbl reads what people write for a number.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say CDbl("1,234.5") '= 1234.5
Say CDbl("$5") '= 5
Say CDbl("(5)") '= -5
Say CDbl("5-") '= -5
Say CDbl("1e3") '= 1000
Say CDbl("1d3") '= 1000
Say CDbl("&HFF") '= 255
Say CDbl("&O17") '= 15
Say CDbl(".5") '= 0.5
Say CDbl(vbTab & "5" & vbCrLf) '= 5
Say CDbl(True) '= -1
Say CDbl(#1/2/1900#) '= 3
Say TypeName(CDbl(1)) '= Double
Say TypeName(CSng(1)) '= Single
Say CSng(1/3) '= 0.3333333
Say ErrorOf("CDbl(""0x10"")") '= 13
Say ErrorOf("CDbl(""5%"")") '= 13
Say ErrorOf("CDbl(""1e400"")") '= 6
Say ErrorOf("CSng(1e39)") '= 6
Say ErrorOf("CDbl("""")") '= 13
Say ErrorOf("CDbl(Null)") '= 94
