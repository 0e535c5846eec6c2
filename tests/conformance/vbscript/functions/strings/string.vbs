' String repeats the first character, or the one of a code.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say String(3, "xy") '= xxx
Say String(2, 65) '= AA
Say String(2, 321) '= AA
Say String(2, -191) '= AA
Say String("3", "a") '= aaa
Say Len(String(0, "a")) '= 0
Say IsNull(String(2, Null)) '= True
Say IsNull(String(Null, "a")) '= True
Say ErrorOf("String(-2, ""x"")") '= 5
Say ErrorOf("String(3, """")") '= 5
