' In Eval and Execute within a function the function's own name means what it means in the function: with
' brackets it calls the function, without it is the result so far.
Function Factorial(n)
    If n = 0 Then Factorial = 1 Else Factorial = n * Eval("Factorial(n - 1)")
End Function
Say Factorial(5)                            '= 120
Function Deep
    Deep = Eval("Deep()")
End Function
On Error Resume Next
Say Deep
Say Err.Number                              '= 28
On Error GoTo 0
Function Twice(n)
    Twice = n + n
    Execute "Twice = Twice + 1"
    If n > 0 Then Twice = Twice + Eval("Eval(""Twice(0)"")")
End Function
Say Twice(3)                                '= 8
Class Counter
    Public Calls
    Function Down(n)
        Calls = Calls + 1
        Down = "array"
        If n > 0 Then Execute "Down = n & Down(n - 1)"
    End Function
    Property Get Sum(n)
        If n > 0 Then Sum = n + Eval("Sum(n - 1)")
    End Property
End Class
Dim c
Set c = New Counter
Say c.Down(3), c.Calls                      '= 321array 4
Say c.Sum(4)                                '= 10
Function Elements
    Elements = Array(7, 8)
    Elements = Eval("Other(1)")
End Function
Function Other(n)
    Other = Array(n, n)
    If n > 0 Then Execute "Other = Other(0)(0)"
End Function
Say Elements                                '= 0
Function NoBrackets(n)
    NoBrackets = 4
    Say Eval("NoBrackets")                  '= 4
    On Error Resume Next
    Execute "Wrong = NoBrackets(1, 2)"
    Say Err.Number                          '= 450
End Function
NoBrackets 1
Dim depth
Function Again
    depth = depth + 1
    Again = depth
    If depth < 3 Then Execute "Again = Again() * 10"
    Again = Again + Eval("Again + Len(Now()) * 0")
End Function
Say Again                                   '= 2400
