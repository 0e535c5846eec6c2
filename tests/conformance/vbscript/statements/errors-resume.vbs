Dim n, x
On Error Resume Next
x = 1 / 0
Say Err.Number, Err.Description, Err.Source '= 11 Division by zero Microsoft VBScript runtime error
Err.Clear
Say Err.Number '= 0
If 1 / 0 Then
  Say "a failing condition enters the block" '= a failing condition enters the block
Else
  Say "never"
End If
For x = 1 / 0 To 3
  Say "a failing head runs the body once" '= a failing head runs the body once
Next
Say Err.Number '= 92
For Each x In 5
  n = n + 1
Next
Say n '= 1
Select Case 1 / 0
  Case 1 : Say "never"
  Case Else : Say "never"
End Select
With 1 / 0
  Say "with" '= with
End With
n = 0
Do
  n = n + 1
Loop Until 1 / 0
Say n '= 1
Sub Fails
  Say "before" '= before
  x = CInt("abc")
  Say "never"
End Sub
Err.Clear
Fails
Say Err.Number '= 13
Sub Handles
  On Error Resume Next
  x = CInt("abc")
  Say "next" '= next
End Sub
Err.Clear
Handles
Say "Err survives the return: " & Err.Number '= Err survives the return: 13
On Error Resume Next
Say Err.Number '= 0
x = CInt("abc") : Say "same line" '= same line
On Error GoTo 0
Say Err.Number '= 0
x = 1 / 0 '! 11 Division by zero
