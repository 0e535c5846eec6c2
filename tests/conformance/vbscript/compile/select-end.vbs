Select Case 1
Case 1
End If '! 1022
