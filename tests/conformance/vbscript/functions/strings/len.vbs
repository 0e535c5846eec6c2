' Len counts characters, whatever the sub-type; Null stays Null.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say Len("abc") '= 3
Say Len("") '= 0
Say Len(Empty) '= 0
Say Len(123) '= 3
Say Len(-1.5) '= 4
Say Len(True) '= 4
Say IsNull(Len(Null)) '= True
Say TypeName(Len("abc")) '= Long
Say Len(ChrW(233) & ChrW(8364)) '= 2
Say ErrorOf("Len(Nothing)") '= 91
Say ErrorOf("Len(Array(1))") '= 13
