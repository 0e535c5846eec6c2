' The byte functions count two bytes a character.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say LenB("abc") '= 6
Say IsNull(LenB(Null)) '= True
Say LeftB("abc", 4) '= ab
Say RightB("abc", 2) '= c
Say MidB("abc", 3, 2) '= b
Say MidB("abc", 3) '= bc
Say InStrB("abc", "b") '= 3
Say InStrB(4, "abcb", "b") '= 7
Say InStrB("abc", "x") '= 0
Say AscB("A") '= 65
Say AscB(ChrB(66)) '= 66
Say ErrorOf("LeftB(""abc"", -1)") '= 5
Say ErrorOf("MidB(""abc"", 0)") '= 5
Say ErrorOf("AscB("""")") '= 5
