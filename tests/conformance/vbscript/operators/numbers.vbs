Say 7.5 \ 2, 6.5 \ 2, 8 Mod 2.5, 19 Mod 6.7 '= 4 3 0 5
Say 32767 + 1, TypeName(32767 + 1) '= 32768 Long
Say 2147483647 + 1, TypeName(2147483647 + 1) '= 2147483648 Double
Say TypeName(200 * 200), TypeName(100000 * 100000) '= Long Double
Say TypeName(1 + 1), TypeName(1 + 1.5), TypeName(1 / 2), TypeName(4 \ 2), TypeName(2 ^ 2) '= Integer Double Double Integer Double
Say TypeName(True + True), True + True '= Integer -2
Say "1" + "2", "1" + 2, 1 + "2", "3" * "4" '= 12 3 3 12
Say TypeName("1" + 2), TypeName("2" * "3") '= Double Double
Say Empty + 1, Empty & "x", Empty + Empty '= 1 x 0
Say TypeName(CByte(200) + CByte(100)), TypeName(CByte(1) + CByte(1)), TypeName(CByte(1) - CByte(2)) '= Integer Byte Integer
Say TypeName(CCur(1) + 1.5), TypeName(CCur(2) * 1.5), TypeName(CSng(1) + 1), TypeName(CSng(1) + 100000) '= Currency Double Single Double
Say TypeName(#1/1/2000# + 1), TypeName(#1/2/2000# - #1/1/2000#), #1/1/2000# + 1 '= Date Double 1/2/2000
Say -True, -"5", -Empty '= 1 -5 0
Say 0.1 + 0.2, 1 / 3, 1e20, 1e15, 123456789012345678 '= 0.3 0.333333333333333 1E+20 1E+15 1.23456789012346E+17
On Error Resume Next
Dim x
x = 1 / 0 : Say Err.Number : Err.Clear '= 11
x = 1 \ 0.4 : Say Err.Number : Err.Clear '= 11
x = 5 Mod 0 : Say Err.Number : Err.Clear '= 11
x = 1e308 * 10 : Say Err.Number : Err.Clear '= 6
x = "a" + 1 : Say Err.Number : Err.Clear '= 13
x = 3000000000 \ 1 : Say Err.Number : Err.Clear '= 6
x = (-8) ^ 0.5 : Say Err.Number : Err.Clear '= 5
x = Array(1) + 1 : Say Err.Number : Err.Clear '= 13
x = Nothing + 1 : Say Err.Number : Err.Clear '= 91
