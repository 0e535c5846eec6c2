' Operators compare text by character code, StrComp as it is told.
Say "a" < "B" '= False
Say StrComp("a", "B", vbTextCompare) '= -1
Say "ä" > "z" '= True
