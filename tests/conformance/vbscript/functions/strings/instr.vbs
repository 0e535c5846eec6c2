' InStr: an optional start in front, a comparison behind.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say InStr("abcd", "bc") '= 2
Say InStr("bcabc", "bc") '= 1
Say InStr(2, "bcabc", "bc") '= 4
Say InStr("abcd", "x") '= 0
Say InStr("", "x") '= 0
Say InStr("", "") '= 0
Say InStr("abc", "") '= 1
Say InStr(3, "abc", "") '= 3
Say InStr(4, "abc", "") '= 0
Say InStr(9, "abc", "c") '= 0
Say InStr(1, "abc", "C", 1) '= 3
Say InStr(1, "abc", "C") '= 0
Say InStr(2.6, "abcd", "bc") '= 0
Say InStr(1, 23456, 45) '= 3
Say TypeName(InStr("a", "a")) '= Long
Say IsNull(InStr(Null, "a")) '= True
Say IsNull(InStr("a", Null)) '= True
Say ErrorOf("InStr(Null, ""a"", ""a"")") '= 94
Say ErrorOf("InStr(1, ""a"", ""a"", Null)") '= 94
Say ErrorOf("InStr(0, ""abc"", ""a"")") '= 5
Say ErrorOf("InStr(-20, ""abc"", ""a"")") '= 5
Say ErrorOf("InStr(1, ""abc"", ""a"", 10)") '= 5
Say ErrorOf("InStr(""abc"", ""b"", 1)") '= 13
