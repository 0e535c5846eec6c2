With Host
x = 1
End If '! 1029
