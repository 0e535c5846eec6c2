Sub Change(x)
  x = x & "!"
End Sub
Sub Keep(ByVal x)
  x = x & "!"
End Sub
Dim v, a(2), g(1, 1)
v = "a"
Change v
Say v '= a!
Change (v)
Say v '= a!
Call Change((v))
Say v '= a!
Call Change(v)
Say v '= a!!
Keep v
Say v '= a!!
a(1) = "e"
Change a(1)
Say a(1) '= e!
Change (a(1))
Say a(1) '= e!
g(1, 0) = "g"
Change g(1, 0)
Say g(1, 0) '= g!
Sub Outer(x)
  Change x
End Sub
Outer v
Say v '= a!!!
Change v & "" ' an expression is a copy
Say v '= a!!!
Sub Fill(arr)
  arr(0) = "filled"
End Sub
Fill a
Say a(0) '= filled
Function ByResult(ByRef n)
  n = n + 1
  ByResult = n * 10
End Function
Dim n
n = 1
Say ByResult(n), n '= 20 2
Function Own
  Own = "r"
  Change Own
End Function
Say Own '= r!
Sub Undeclared(x)
  x = 9
End Sub
Undeclared fresh
Say fresh '= 9
