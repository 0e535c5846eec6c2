' Int goes down, Fix towards zero.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say Int(-8.4) '= -9
Say Fix(-8.4) '= -8
Say Int(8.9) '= 8
Say Int("3.7") '= 3
Say Int(True) '= -1
Say Int(Empty) '= 0
Say Int(CCur(-1.5)) '= -2
Say Fix(CCur(-1.5)) '= -1
Say TypeName(Int(2.5)) '= Double
Say TypeName(Int(5)) '= Integer
Say TypeName(Int(CCur(1))) '= Currency
Say TypeName(Int(#1/1/2000 12:00:00#)) '= Date
Say Int(#1/1/2000 12:00:00#) '= 1/1/2000
Say IsNull(Int(Null)) '= True
Say IsNull(Fix(Null)) '= True
Say ErrorOf("Int(""a"")") '= 13
