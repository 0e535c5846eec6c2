' Filter keeps what contains the text, or what does not.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say Join(Filter(Array("apple", "pear", "grape"), "ap"), ",") '= apple,grape
Say Join(Filter(Array("apple", "pear", "grape"), "ap", False), ",") '= pear
Say Join(Filter(Array("Apple", "pear"), "AP", True, 1), ",") '= Apple
Say UBound(Filter(Array("a"), "x")) '= -1
Say UBound(Filter(Array("a", "b"), "")) '= 1
Say LBound(Filter(Array("a"), "a")) '= 0
Say ErrorOf("Filter(""abc"", ""a"")") '= 13
Say ErrorOf("Filter(Array(""a""), Null)") '= 94
