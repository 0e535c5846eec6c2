' Mid counts from 1; a start beyond the end gives nothing.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say Mid("test", 2) '= est
Say Mid("test", 2, 2) '= es
Say Mid("test", 2, 9) '= est
Say Mid("test", 1, 0) '= ""
Say Mid("test", 5) '= ""
Say Mid("test", 4) '= t
Say Mid(1234, 2, 2) '= 23
Say IsNull(Mid(Null, 1)) '= True
Say ErrorOf("Mid(""test"", 0)") '= 5
Say ErrorOf("Mid(""test"", -1)") '= 5
Say ErrorOf("Mid(""test"", 1, -1)") '= 5
Say ErrorOf("Mid(""test"", 1, Null)") '= 94
Say ErrorOf("Mid(""test"", ""a"")") '= 13
Say ErrorOf("Mid(Null, -1, -1)") '= 5
