' IsDate: dates and text that reads as one.
Say IsDate(#1/1/2000#) '= True
Say IsDate("2/28/2004") '= True
Say IsDate("13:05") '= True
Say IsDate("February 28, 2004") '= True
Say IsDate("2/30/2004") '= False
Say IsDate(5) '= False
Say IsDate("5") '= False
Say IsDate("x") '= False
Say IsDate(Empty) '= False
Say IsDate(Null) '= False
Say IsDate(Nothing) '= False
