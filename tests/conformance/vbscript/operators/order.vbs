Function F(n)
  Say "F" & n '= F1 | F2 | F3 | F4
  F = n
End Function
Dim x
x = F(1) = 2 And F(2) = 3 ' no short circuit
x = F(3) + F(4)
Say x '= 7
x = 1
Function Change
  x = 10
  Change = 1
End Function
Say x + Change '= 2
Dim s
s = "a"
Function Longer
  s = s & "b"
  Longer = "c"
End Function
s = s & Longer & "d"
Say s '= acd
s = "x"
s = s & s & s
Say s '= xxx
