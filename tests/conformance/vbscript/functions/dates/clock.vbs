' Now is Date and Time together.
n = Now
Say TypeName(n) '= Date
Say TypeName(Date) '= Date
Say TypeName(Time) '= Date
Say TypeName(Timer) '= Single
Say Timer >= 0 And Timer < 86400 '= True
Say Date = Int(Date) '= True
Say Time < 1 '= True
Say DateDiff("d", Date, n) '= 0
Say Abs(DateDiff("s", Date + Time, Now)) < 5 '= True
