Class Noisy
  Public Name
  Private Sub Class_Initialize
    Say "made" '= made | made | made | made | made | made | made
  End Sub
  Private Sub Class_Terminate
    Say Name & " gone" '= a gone | scope gone | b gone | " gone" | temporary gone | e gone | in array gone
  End Sub
  Function Named(n)
    Name = n
    Set Named = Me
  End Function
End Class
Function Make(n)
  Set Make = New Noisy
  Make.Name = n
End Function
Dim x, y
Set x = Make("a")
Set x = Nothing
Say 1 '= 1
Sub Scope
  Dim local
  Set local = Make("scope")
End Sub
Scope
Say 2 '= 2
Set x = Make("b")
x = 5
Say 3 '= 3
If TypeName(New Noisy) = "Noisy" Then Say 4 '= 4
Say Make("temporary").Name '= temporary
Say 5 '= 5
Set x = Make("e")
Set y = x
Set x = Nothing
Say 6 '= 6
Set y = Nothing
Say 7 '= 7
Dim arr(1)
Set arr(0) = Make("in array")
Erase arr
Say 8 '= 8
