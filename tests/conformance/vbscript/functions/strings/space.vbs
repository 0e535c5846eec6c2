' Space rounds its count half to even.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say "[" & Space(3) & "]" '= [   ]
Say Len(Space(0)) '= 0
Say Len(Space(2.5)) '= 2
Say Len(Space(1.5)) '= 2
Say Len(Space("1")) '= 1
Say ErrorOf("Space(-1)") '= 5
Say ErrorOf("Space(Null)") '= 94
