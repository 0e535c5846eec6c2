Class C
  Sub Raises
    Dim x
    x = 1 / 0 '! 11
  End Sub
End Class
Dim c1
Set c1 = New C
c1.Raises
