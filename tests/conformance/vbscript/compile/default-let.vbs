Class C
  Public Default Property Let P(v) '! 1058
  End Property
End Class
