Option Explicit
Dim known
known = 1
Sub S
  Dim inner
  inner = 2
  Say inner '= 2
End Sub
S
On Error Resume Next
unknown = 1
Say Err.Number, Err.Description '= 500 Variable is undefined
Err.Clear
Say unknown
Say Err.Number '= 500
Err.Clear
Unknown 1
Say Err.Number '= 500
Err.Clear
known = Unknown(1)
Say Err.Number '= 500
Sub T
  other = 3
End Sub
Err.Clear
T
Say Err.Number '= 500
On Error GoTo 0
unknown = 2 '! 500 Variable is undefined: 'unknown'
