For i = 1 To 2
    x = 1
End If '! 1020
