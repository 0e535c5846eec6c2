' Asc and Chr follow the Western code page.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say Asc("T") '= 84
Say Asc("test") '= 116
Say Asc(3) '= 51
Say Asc(ChrW(8364)) '= 128
Say Asc(ChrW(233)) '= 233
Say Asc(ChrW(20013)) '= 63
Say TypeName(Asc("a")) '= Integer
Say ErrorOf("Asc("""")") '= 5
Say ErrorOf("Asc(Empty)") '= 5
Say ErrorOf("Asc(Null)") '= 94
Say ErrorOf("Asc()") '= 450
