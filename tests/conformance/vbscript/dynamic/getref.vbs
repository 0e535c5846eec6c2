Function Add(a, b)
  Add = a + b
End Function
Function Apply(f, x, y)
  Apply = f(x, y)
End Function
Sub Bump(n)
  n = n + 1
End Sub
Dim f, n
Set f = GetRef("add")
Say f(1, 2), Apply(f, 3, 4), TypeName(f) '= 3 7 Object
Set f = GetRef("Bump")
n = 1
f n
Say n '= 2
On Error Resume Next
Set f = GetRef("nosuch")
Say Err.Number '= 5
