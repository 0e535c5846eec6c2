' Chr takes codes 0 to 255.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say Chr(65) '= A
Say Chr("120") '= x
Say Chr(119.5) '= x
Say Chr(128) = ChrW(8364) '= True
Say Chr(255) = ChrW(255) '= True
Say Len(Chr(0)) '= 1
Say Chr(13) & Chr(10) = vbCrLf '= True
Say ErrorOf("Chr(256)") '= 5
Say ErrorOf("Chr(-1)") '= 5
Say ErrorOf("Chr(Null)") '= 94
