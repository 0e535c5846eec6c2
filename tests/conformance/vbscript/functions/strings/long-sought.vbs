' Texts that agree for long before they differ are told apart in time that grows with their lengths.
Dim s, t
s = String(200000, "a")
t = String(50000, "a")
Say InStr(s & "b", t & "b"), InStr(s, t & "b"), InStr(1, s & "B", t & "b", 1) '= 150001 0 150001
Say InStrRev("b" & s, "b" & t), InStrRev(s, "b" & t), InStrRev(s, t) '= 1 0 150001
Say InStrRev(s & "b" & t, "b" & t, 250000), InStrRev(s & "b" & t, "b" & t, 250001) '= 0 200001
Say Len(Replace(s & "b", t & "b", "")), Len(Replace(s, t, "xy")), UBound(Split(s, t)) '= 150000 8 4
