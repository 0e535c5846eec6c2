Dim x, a(1, 2), i, j, d
For Each x In Array(1, "b", 3)
  Say x '= 1 | b | 3
Next
For i = 0 To 1
  For j = 0 To 2
    a(i, j) = i & j
  Next
Next
For Each x In a ' the first subscript runs fastest
  Say x '= 00 | 10 | 01 | 11 | 02 | 12
Next
For Each x In Host.Items
  Say x '= alpha | beta | gamma
Next
For Each x In Array()
  Say "never"
Next
For Each x In Array(1, 2, 3)
  If x = 2 Then Exit For
Next
Say x '= 2
d = Array(1, 2)
For Each x In d
  d(1) = 7
  Say x '= 1 | 7
Next
For Each x In Array(1) : Next
Say TypeName(x) '= Empty
For Each x In Host.Items : Next
Say TypeName(x) '= Empty
On Error Resume Next
x = 6
For Each x In 1 / 0
  Say Err.Number, x '= 11 6
Next
Say Err.Number '= 451
On Error GoTo 0
For Each x In 5 '! 451
Next
