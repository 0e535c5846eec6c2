Dim s, i
On Error Resume Next
s = String(5000000, "x")
For i = 1 To 10
  s = s & s
  If Err.Number <> 0 Then Exit For
Next
Say Err.Number = 7 Or Err.Number = 14 '= True
Err.Clear
ReDim a(1000000000)
Say Err.Number '= 7
