Dim a, x
a = Array(1, 2)
For Each x In a
  ReDim a(5) '! 10
Next
