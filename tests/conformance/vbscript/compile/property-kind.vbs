Class C
  Property P '! 1049
  End Property
End Class
