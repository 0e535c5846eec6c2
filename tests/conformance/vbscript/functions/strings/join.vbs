' Join puts the parts together with a blank or what is given.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say Join(Array("a", "b")) '= a b
Say Join(Array(1, 2.5, True), ",") '= 1,2.5,True
Say Join(Array("a", Empty, "b"), "-") '= a--b
Say Join(Array(), ",") = "" '= True
Say Join(Array("a"), "x") '= a
Say Join(Array("a", "b"), "") '= ab
Say ErrorOf("Join(""abc"")") '= 13
Say ErrorOf("Join(Array(""a"", Null))") '= 94
Say ErrorOf("Join(Array(""a"", Array(""b"")))") '= 13
