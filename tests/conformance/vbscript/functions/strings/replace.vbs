' Replace; a start drops what stands before it.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say Replace("xx testxx(xx)", "xx", "!") '= ! test!(!)
Say Replace("xxxxx", "xx", "y") '= yyx
Say Replace("yxxy", "x", "") '= yy
Say Replace("", "x", "y") = "" '= True
Say Replace("xxx", "", "y") '= xxx
Say Replace(123, 2, 6) '= 163
Say Replace("xx testxx(xx)", "xx", "!", 2) '= x test!(!)
Say Replace("xxx", "", "y", 2) '= xx
Say Replace("xx", "x", "y", 2000) = "" '= True
Say Replace("xx testxx(xx)", "xx", "!", 1, 2) '= ! test!(xx)
Say Replace("xx testxx(xx)", "xx", "!", 2, 1) '= x test!(xx)
Say Replace("xx", "x", "y", 1, 0) '= xx
Say Replace("xx", "x", "y", 2, 0) '= x
Say Replace("Aa testAAa", "aa", "!", 1, -1, 1) '= ! test!a
Say Replace("aAa", "A", "b") '= aba
Say Replace("aaa", "a", "aa") '= aaaaaa
Say ErrorOf("Replace(Null, ""x"", ""y"")") '= 94
Say ErrorOf("Replace(""x"", Null, ""y"")") '= 94
Say ErrorOf("Replace(""x"", ""x"", Null)") '= 94
Say ErrorOf("Replace(""x"", ""x"", ""y"", 0)") '= 5
Say ErrorOf("Replace(""x"", ""x"", ""y"", 1, -2)") '= 5
Say ErrorOf("Replace(""x"", ""x"", ""y"", 1, 1, 8)") '= 5
