Class C
  Private Default Sub S '! 1057
  End Sub
End Class
