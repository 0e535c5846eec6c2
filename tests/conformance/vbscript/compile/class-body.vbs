Class C
  x = 1 '! 1002
End Class
