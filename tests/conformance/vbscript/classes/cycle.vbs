Class Node
  Public Other
End Class
Dim a, b, i
For i = 1 To 100
  Set a = New Node
  Set b = New Node
  Set a.Other = b
  Set b.Other = a
Next
Dim head, n
For i = 1 To 100000
  Set n = New Node
  If IsObject(head) Then Set n.Other = head
  Set head = n
Next
Set head = Nothing
Set n = Nothing
Say "alive" '= alive
