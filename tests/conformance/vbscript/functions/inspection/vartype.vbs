' VarType numbers every sub-type.
Say VarType(Empty) '= 0
Say VarType(Null) '= 1
Say VarType(1) '= 2
Say VarType(32768) '= 3
Say VarType(CSng(1)) '= 4
Say VarType(1.5) '= 5
Say VarType(CCur(1)) '= 6
Say VarType(#1/1/2000#) '= 7
Say VarType("") '= 8
Say VarType(Nothing) '= 9
Say VarType(New RegExp) '= 9
Say VarType(True) '= 11
Say VarType(CByte(1)) '= 17
Say VarType(Array()) '= 8204
Say TypeName(VarType(1)) '= Integer
