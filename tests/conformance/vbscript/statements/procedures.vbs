Sub NoArguments
  Say "called" '= called | called | called
End Sub
NoArguments
NoArguments()
Call NoArguments
Function Twice(n)
  Twice = n * 2
End Function
Say Twice(4) '= 8
Dim r
r = Twice(2) + Twice(3)
Say r '= 10
Function Fact(n)
  If n <= 1 Then
    Fact = 1
    Exit Function
  End If
  Fact = n * Fact(n - 1)
End Function
Say Fact(10) '= 3628800
Function Nothing_Assigned
End Function
Say Nothing_Assigned '= Empty
Function Count
  Count = 1
  Count = Count + 1 ' without brackets it is the result
End Function
Say Count '= 2
Later
Sub Later
  Say "hoisted" '= hoisted
End Sub
Twice 5, 6 '! 450
