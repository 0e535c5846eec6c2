' LBound and UBound of any dimension.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Dim a(2, 4), d()
Say UBound(a) '= 2
Say UBound(a, 1) '= 2
Say UBound(a, 2) '= 4
Say LBound(a, 2) '= 0
Say TypeName(UBound(a)) '= Long
Say ErrorOf("UBound(a, 3)") '= 9
Say ErrorOf("UBound(a, 0)") '= 9
Say ErrorOf("UBound(d)") '= 9
Say ErrorOf("UBound(5)") '= 13
Say ErrorOf("LBound(Null)") '= 13
Say ErrorOf("LBound(Empty)") '= 13
Say ErrorOf("UBound()") '= 450
