Dim i, a, b
a = 0
b = 1.5
For i = 1 To 10000000
  a = (a + i * 3) Mod 1000003
  b = b * 1.0000001 + 0.5
Next
WScript.Echo a & " " & (b > 1)
