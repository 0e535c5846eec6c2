If x Then
y = 1
End Sub '! 1012
