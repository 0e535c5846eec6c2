Function Deep(n)
  Deep = Deep(n + 1) '! 28 Out of stack space
End Function
Deep 1
