Do
    x = 1
End If '! 1019
