' Split; a limit keeps the rest in the last part.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say UBound(Split("")) '= -1
Say UBound(Split("abc")) '= 0
Say Join(Split("abc def ghi"), "|") '= abc|def|ghi
Say Join(Split("a,b,c", ","), "|") '= a|b|c
Say Join(Split("a,b,c", ",", 2), "|") '= a|b,c
Say Join(Split("a,b,c", ",", 1), "|") '= a,b,c
Say Join(Split("a,b,c", ",", 9), "|") '= a|b|c
Say Join(Split("a,b,c", ",", -1), "|") '= a|b|c
Say UBound(Split("a,b,c", ",", 0)) '= -1
Say Join(Split("a--b", "-"), "|") '= a||b
Say UBound(Split(",", ",")) '= 1
Say UBound(Split("abc", "")) '= 0
Say Join(Split("12345", 3), "|") '= 12|45
Say Join(Split("aZbzc", "z", -1, 1), "|") '= a|b|c
Say UBound(Split("aZbzc", "z", -1, 0)) '= 1
Say TypeName(Split("a")) '= Variant()
Say TypeName(Split("a")(0)) '= String
Say LBound(Split("a,b")) '= 0
Say ErrorOf("Split(Null)") '= 94
Say ErrorOf("Split(""a"", Null)") '= 94
Say ErrorOf("Split(""a"", ""-"", -42)") '= 5
Say ErrorOf("Split(""a"", ""-"", -1, 2)") '= 5
