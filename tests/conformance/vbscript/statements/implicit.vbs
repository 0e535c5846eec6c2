Say unknown '= Empty
Sub S
  fresh = 1
  Say fresh '= 1
End Sub
S
Say fresh '= Empty
g = 5
Sub T
  g = g + 1
End Sub
T
Say g '= 6
On Error Resume Next
nosuch 1
Say Err.Number, Err.Description '= 13 Type mismatch
Err.Clear
x = nosuch(1)
Say Err.Number '= 13
Err.Clear
nosuch.Member
Say Err.Number '= 424
On Error GoTo 0
nosuch 1, 2 '! 13 Type mismatch: 'nosuch'
