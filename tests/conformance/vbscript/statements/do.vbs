Dim n
Do While n < 2
  n = n + 1
Loop
Say n '= 2
Do Until n = 5
  n = n + 1
Loop
Say n '= 5
Do
  n = n + 1
Loop While n < 3
Say n '= 6
Do
  n = n + 1
Loop Until n >= 8
Say n '= 8
Do
  n = n + 1
  If n = 12 Then Exit Do
Loop
Say n '= 12
While n < 20
  n = n + 1
Wend
Say n '= 20
Do While True : Exit Do : Loop
Do
  For n = 1 To 5
    If n = 2 Then Exit Do
  Next
Loop
Say n '= 2
