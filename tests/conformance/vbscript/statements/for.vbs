Dim i, s
For i = 1 To 3
  Say i '= 1 | 2 | 3
Next
Say i '= 4
For i = 3 To 1 Step -1 : Say i : Next '= 3 | 2 | 1
For i = 1 To 0
  Say "never"
Next
Say i '= 1
For i = 0 To 1 Step 0.25
  s = s & i & " "
Next
Say s '= "0 0.25 0.5 0.75 1 "
For i = 1 To 10
  If i = 3 Then Exit For
Next
Say i '= 3
Dim last
last = 3
For i = 1 To last
  last = 10
Next
Say i '= 4
For i = 1 To 3
  i = i + 1
Next
Say i '= 5
For i = 32766 To 32768
Next
Say i, TypeName(i) '= 32769 Long
Dim first
first = 2
For i = first To first + 1
  Say i '= 2 | 3
Next
For i = Array(5)(0) To Len("123456")
  Say i '= 5 | 6
Next
Function Between(from, limit, pace)
  For i = from To limit Step pace
    Between = Between & i & " "
  Next
End Function
Say Between(1, 2, 1) '= "1 2 "
Say Between("1", "2", "0.5") '= "1 1.5 2 "
Say Between(3, 1, True) '= "3 2 1 "
