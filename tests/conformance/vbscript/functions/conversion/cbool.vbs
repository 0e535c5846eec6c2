' CBool reads True and False, and numbers.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say CBool(5) '= True
Say CBool(0) '= False
Say CBool(-0.56) '= True
Say CBool(Empty) '= False
Say CBool("0") '= False
Say CBool("0.1") '= True
Say CBool("TRUE") '= True
Say CBool("#FALSE#") '= False
Say CBool(#1/1/2000#) '= True
Say TypeName(CBool(1)) '= Boolean
Say ErrorOf("CBool("""")") '= 13
Say ErrorOf("CBool(""yes"")") '= 13
Say ErrorOf("CBool(Null)") '= 94
