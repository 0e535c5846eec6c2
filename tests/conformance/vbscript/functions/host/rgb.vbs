' RGB: parts above 255 count as 255, negative ones are 5.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say RGB(1, 2, 3) '= 197121
Say RGB(255, 255, 255) '= 16777215
Say RGB(300, 0, 0) '= 255
Say TypeName(RGB(0, 0, 0)) '= Long
Say ErrorOf("RGB(-1, 0, 0)") '= 5
Say ErrorOf("RGB(0, -2, 0)") '= 5
Say ErrorOf("RGB(0, 0)") '= 450
