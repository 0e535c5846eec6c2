Function Fib(n)
  If n < 2 Then
    Fib = n
  Else
    Fib = Fib(n - 1) + Fib(n - 2)
  End If
End Function
Function Add(ByVal a, ByVal b)
  Add = a + b
End Function
Dim i, s
s = 0
For i = 1 To 1000000
  s = Add(s, 1)
Next
WScript.Echo s & " " & Fib(27)
