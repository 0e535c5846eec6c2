While x < 1
    x = 1
End If '! 1018
