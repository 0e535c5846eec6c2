Dim round, i, s
For round = 1 To 20
  s = ""
  For i = 1 To 20000
    s = s & "    line number " & i & " of the generated text" & vbCrLf
  Next
Next
WScript.Echo Len(s)
