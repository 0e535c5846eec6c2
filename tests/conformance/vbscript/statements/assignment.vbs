Dim a, b
a = 5 : Say a '= 5
b = a & "x"
Say b '= 5x
a = a + 1
Say a '= 6
Say a * 2 - 3 '= 9
