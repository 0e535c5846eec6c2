Function Kind(x)
  Select Case x
    Case 1
      Kind = "one"
    Case 2, 3, 4
      Kind = "some"
    Case 5: Kind = "five"
    Case Else
      Kind = "other"
  End Select
End Function
Say Kind(1), Kind(3), Kind(5), Kind(9) '= one some five other
Select Case 5
End Select
Select Case True
  Case 1 > 2
    Say "no"
  Case 2 > 1
    Say "yes" '= yes
End Select
Select Case "b"
  Case "a", "b" : Say "text" '= text
End Select
' A subject that is worked out lives until the last case.
Select Case LCase("B")
  Case "a" : Say "no"
  Case "b" : Say "lowered" '= lowered
  Case Else : Say "no"
End Select
For Each Name In Array("x ", "Y")
  Select Case LCase(Trim(Name))
    Case "a", "y" : Say "listed" '= listed
    Case Left("xyz", 1) : Say "called" '= called
    Case Else : Say "no"
  End Select
Next
Select Case "b"
  Case 1 '! 13
End Select
