Dim a, d, i, sum
ReDim a(999999)
For i = 0 To 999999
  a(i) = i
Next
sum = 0
For i = 0 To 999999
  sum = sum + a(i)
Next
Set d = CreateObject("Scripting.Dictionary")
For i = 0 To 199999
  d("key" & i) = i
Next
For i = 0 To 199999
  If d.Exists("key" & i) Then sum = sum + d("key" & i)
Next
WScript.Echo sum & " " & d.Count
