Const Pi = 3, Name = "n", Minus = -2
Public Const Open = 1
Private Const Shut = (5)
Say Pi, Name, Minus, Open, Shut '= 3 n -2 1 5
Const Signs = -+-+-+-10, Deep = -&H8000, Two = +2
Say Signs, Deep, TypeName(Deep), Two '= 10 32768 Long 2
Sub Local
  Const Pi = 4
  Say Pi '= 4
End Sub
Local
On Error Resume Next
Pi = 5
Say Err.Number, Pi '= 501 3
On Error GoTo 0
Name = "x" '! 501
