Class C
  Property Let P '! 1054
  End Property
End Class
