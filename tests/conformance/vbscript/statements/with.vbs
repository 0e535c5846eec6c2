Class Point
  Public X, Y
  Public Name
  Private Sub Class_Terminate
    Say Name & " gone" '= b gone | a gone
  End Sub
End Class
Dim p
Set p = New Point
p.Name = "a"
With p
  .X = 3
  .Y = .X + 1
  With Host
    Say .Name '= quillon
  End With
  Say .X, .Y '= 3 4
End With
With New Point
  .Name = "b"
  Say "inside" '= inside
End With
Say "behind" '= behind
With p
  Set p = Nothing
  Say .Name '= a
End With
Say "end" '= end
