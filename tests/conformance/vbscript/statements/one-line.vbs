' End needs no end of line before it, and procedures may stand in a block outside procedures.
If False Then
Sub Inside : Say "inside" : End Sub '= inside | inside
Sub Short() Say "short" End Sub '= short
End If
Inside
Short
Class C
  Public x End Class
Class D
  Function Twice(n)
    Twice = n * 2 End Function End Class
Say TypeName(New C), (New D).Twice(4) '= C 8
If 1 = 1Then Say "then" '= then
Say (&H01Or&H02) '= 3
Call (New D).Twice(1)
Call (((Inside)))
x = (CStr)(7)
Say x '= 7
Dim o, b
Set o = New D
Say +o Is o, TypeName(+True), +"a" '= True Boolean a
