' InStrRev: the whole match must lie before the start.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say InStrRev("bcabcd", "bc") '= 4
Say InStrRev("abcd", "bc", 3) '= 2
Say InStrRev("abcd", "bc", 2) '= 0
Say InStrRev("abcd", "b", 2) '= 2
Say InStrRev("abcd", "bc", 15) '= 0
Say InStrRev("abcd", "A", 1, 1) '= 1
Say InStrRev("abcd", "Ab", -1, 1) '= 1
Say InStrRev("abc", "") '= 3
Say InStrRev("abc", "", 2) '= 2
Say InStrRev("", "a") '= 0
Say InStrRev("", "") '= 0
Say InStrRev(1234, 34) '= 3
Say TypeName(InStrRev("a", "a")) '= Long
Say ErrorOf("InStrRev(Null, ""a"")") '= 94
Say ErrorOf("InStrRev(""a"", Null)") '= 94
Say ErrorOf("InStrRev(""a"", ""a"", 0)") '= 5
Say ErrorOf("InStrRev(""a"", ""a"", -20)") '= 5
Say ErrorOf("InStrRev(""a"", ""a"", 1, 10)") '= 5
