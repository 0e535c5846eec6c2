' DateAdd clamps the ends of months.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say DateAdd("m", 1, #1/31/2004#) '= 2/29/2004
Say DateAdd("m", 1, #1/31/2003#) '= 2/28/2003
Say DateAdd("m", -1, #3/31/2004#) '= 2/29/2004
Say DateAdd("yyyy", 1, #2/29/2004#) '= 2/28/2005
Say DateAdd("q", 1, #11/30/2003#) '= 2/29/2004
Say DateAdd("d", 1, #12/31/2004#) '= 1/1/2005
Say DateAdd("y", 1, #12/31/2004#) '= 1/1/2005
Say DateAdd("w", 1, #12/31/2004#) '= 1/1/2005
Say DateAdd("ww", -1, #1/1/2000#) '= 12/25/1999
Say DateAdd("h", 25, #1/1/2000#) '= 1/2/2000 1:00:00 AM
Say DateAdd("n", -1, #1/1/2000#) '= 12/31/1999 11:59:00 PM
Say DateAdd("s", 61, #1/1/2000#) '= 1/1/2000 12:01:01 AM
Say DateAdd("YYYY", 1, #1/1/2000#) '= 1/1/2001
Say DateAdd("d", 1.5, #1/1/2000#) '= 1/3/2000
Say DateAdd("d", 1, "1/1/2000") '= 1/2/2000
Say DateAdd("h", 12, #12/29/1899 6:00:00 PM#) '= 6:00:00 AM
Say TypeName(DateAdd("d", 1, #1/1/2000#)) '= Date
Say IsNull(DateAdd("d", 1, Null)) '= True
Say ErrorOf("DateAdd(""k"", 1, #1/1/2000#)") '= 5
Say ErrorOf("DateAdd(Null, 1, #1/1/2000#)") '= 94
Say ErrorOf("DateAdd(""d"", Null, #1/1/2000#)") '= 94
Say ErrorOf("DateAdd(""yyyy"", 10000, #1/1/2000#)") '= 5
Say ErrorOf("DateAdd(""d"", 1, ""x"")") '= 13
