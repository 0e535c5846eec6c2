' StrComp: character code or without case; the result is an Integer.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say StrComp("ABC", "abc") '= -1
Say StrComp("abc", "ABC", 0) '= 1
Say StrComp("ABC", "abc", 1) '= 0
Say StrComp("ABC", "ABCD", vbTextCompare) '= -1
Say StrComp("ABCD", "ABC", vbBinaryCompare) '= 1
Say StrComp(1, "1") '= 0
Say StrComp(Empty, "") '= 0
Say TypeName(StrComp("a", "b")) '= Integer
Say IsNull(StrComp("a", Null)) '= True
Say IsNull(StrComp(Null, "a")) '= True
Say ErrorOf("StrComp(""a"", ""b"", 3)") '= 5
Say ErrorOf("StrComp(""a"")") '= 450
