' DatePart; weeks by the day and the week that begin.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say DatePart("yyyy", #2/28/2004#) '= 2004
Say DatePart("q", #8/1/2004#) '= 3
Say DatePart("m", #2/28/2004#) '= 2
Say DatePart("y", #12/31/2004#) '= 366
Say DatePart("d", #2/28/2004#) '= 28
Say DatePart("w", #2/28/2004#) '= 7
Say DatePart("w", #2/28/2004#, vbMonday) '= 6
Say DatePart("ww", #1/1/2004#) '= 1
Say DatePart("ww", #12/31/2004#) '= 53
Say DatePart("ww", #1/1/2005#, vbMonday, vbFirstFourDays) '= 53
Say DatePart("ww", #1/3/2005#, vbMonday, vbFirstFourDays) '= 1
Say DatePart("ww", #12/31/2003#, vbMonday, vbFirstFourDays) '= 1
Say DatePart("ww", #1/1/2004#, vbSunday, vbFirstFullWeek) '= 52
Say DatePart("ww", #1/4/2004#, vbSunday, vbFirstFullWeek) '= 1
Say DatePart("h", #1:05:59 PM#) '= 13
Say DatePart("n", #1:05:59 PM#) '= 5
Say DatePart("s", #1:05:59 PM#) '= 59
Say TypeName(DatePart("d", #1/1/2004#)) '= Integer
Say IsNull(DatePart("d", Null)) '= True
Say ErrorOf("DatePart(""z"", #1/1/2004#)") '= 5
Say ErrorOf("DatePart(""d"", #1/1/2004#, 8)") '= 5
Say ErrorOf("DatePart(""d"", #1/1/2004#, 1, 4)") '= 5
