Dim fixed(3), grid(1, 2), dyn(), a, b, i
Say UBound(fixed), LBound(fixed), UBound(grid), UBound(grid, 2) '= 3 0 1 2
fixed(0) = 1 : fixed(3) = "x"
grid(1, 2) = 7
Say fixed(0), fixed(1), fixed(3), grid(1, 2) '= 1 Empty x 7
a = fixed
a(0) = 99
Say fixed(0), a(0) '= 1 99
ReDim dyn(2)
dyn(2) = "kept"
ReDim Preserve dyn(4)
Say dyn(2), UBound(dyn) '= kept 4
ReDim dyn(1)
Say dyn(0), UBound(dyn) '= Empty 1
ReDim b(1, 1)
b(1, 1) = 5
ReDim Preserve b(1, 3)
Say b(1, 1), UBound(b, 2) '= 5 3
a = Array(1, Array(2, 3))
a(1)(0) = 20
Say a(1)(0), a(1)(1) '= 20 3
b = a(1)
b(0) = 200
Say a(1)(0), b(0) '= 20 200
Say IsArray(a), TypeName(a), VarType(a) '= True Variant() 8204
fixed("2") = "text subscript" : Say fixed(2), fixed(1.5) '= text subscript text subscript
Erase fixed
Say fixed(0), UBound(fixed) '= Empty 3
a = Array()
Say UBound(a) '= -1
i = 2
a = Array(1, 2, 3)
a(i) = a(i) + 1
Say a(2), a(i - 1) '= 4 2
