Say TypeName(a), TypeName(b) '= Empty Empty
Dim a(2), b()
Say TypeName(a), UBound(a), TypeName(b) '= Variant() 2 Variant()
Dim i
For i = 1 To 2
  Dim c(1)
  Say c(0) & "." '= . | 1.
  c(0) = i
Next
Sub Local
  Say TypeName(d) '= Empty | Empty
  Dim d(1)
  d(0) = 1
End Sub
Local
Local
