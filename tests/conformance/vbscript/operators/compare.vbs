Dim s, n, e, u, t
s = "5" : n = 5 : t = True
Say s = n, n = s, n < s, s < n, s > n '= False False True False True
Say s = 5, 5 = s, s < 6, "10" = 10 '= True True True True
Say "True" = True, "true" = True, "False" = False '= True False True
Say n = 5.0, 1 = True, -1 = True, t = -1 '= True False True True
Say "a" < "b", "B" < "a", "a" = "A", "abc" < "abd" '= True True False True
Say e = 0, e = "", u = e '= True True True
Say TypeName(Null = 1), TypeName(Null = Null) '= Null Null
Say #1/1/2000# < #1/2/2000#, #1/1/2000# = 36526 '= True True
s = "1/1/2000"
Say s = #1/1/2000#, "1/2/2000" > #1/1/2000# '= True True
Say Host Is Host, Host Is Nothing, Nothing Is Nothing '= True False True
Say "a" & 1 = "a1" '= True
On Error Resume Next
s = "abc" = 5
Say Err.Number '= 13
Err.Clear
s = 5 Is Nothing
Say Err.Number '= 424
Err.Clear
s = Array(1) = Array(1)
Say Err.Number '= 13
