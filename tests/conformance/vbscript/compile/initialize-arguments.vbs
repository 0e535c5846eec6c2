Class C
  Sub Class_Initialize(x) '! 1053
  End Sub
End Class
