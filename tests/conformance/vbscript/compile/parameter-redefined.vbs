Sub S(a, A) '! 1041
End Sub
