Dim x
x = 5
If x = 5 Then Say "one" '= one
If x = 6 Then Say "no" Else Say "two" '= two
If x = 5 Then x = 6 : Say "three" '= three
If x = 1 Then
  Say "no"
ElseIf x = 6 Then
  Say "four" '= four
ElseIf x = 6 Then
  Say "no"
Else
  Say "no"
End If
If x = 1 Then Say "no" : Say "never" Else If x = 6 Then Say "five" Else Say "no" '= five
If Null Then
  Say "no"
Else
  Say "Null counts as False" '= Null counts as False
End If
If "True" Then Say "text" '= text
If 0.1 Then Say "any number but zero" '= any number but zero
If x = 6 Then Say "six" End If '= six
If x = 1 Then
ElseIf x = 6 Then Say "seven" '= seven
End If
If "abc" Then '! 13
End If
