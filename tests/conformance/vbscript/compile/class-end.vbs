Class A
End Sub '! 1047
