' Array makes arrays from 0; its values are copied.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say Array(1, 2, 3)(2) '= 3
Say UBound(Array()) '= -1
Say LBound(Array()) '= 0
Say UBound(Array(1)) '= 0
Say TypeName(Array(1)) '= Variant()
Say TypeName(Array(1)(0)) '= Integer
a = Array(1, "x")
b = a
a(0) = 9
Say b(0) '= 1
Say ErrorOf("Array(1)(1)") '= 9
