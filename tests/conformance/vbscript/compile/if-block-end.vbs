If True Then
    x = 1
Else
    x = 2
Else '! 1014
End If
