Class C
  Property Get P(a)
  End Property
  Property Let P(v) '! 1051
  End Property
End Class
