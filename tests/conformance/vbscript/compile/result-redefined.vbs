Function X7
    Dim X7 '! 1041
End Function
