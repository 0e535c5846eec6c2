' DateDiff counts boundaries.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say DateDiff("yyyy", #12/31/2003#, #1/1/2004#) '= 1
Say DateDiff("q", #3/31/2004#, #4/1/2004#) '= 1
Say DateDiff("m", #1/31/2004#, #2/1/2004#) '= 1
Say DateDiff("d", #1/1/2004 11:59:00 PM#, #1/2/2004#) '= 1
Say DateDiff("d", #1/2/2004#, #1/1/2004#) '= -1
Say DateDiff("y", #1/1/2004#, #12/31/2004#) '= 365
Say DateDiff("w", #1/1/2004#, #1/8/2004#) '= 1
Say DateDiff("w", #1/1/2004#, #1/7/2004#) '= 0
Say DateDiff("ww", #1/3/2004#, #1/4/2004#) '= 1
Say DateDiff("ww", #1/4/2004#, #1/5/2004#, vbMonday) '= 1
Say DateDiff("ww", #1/4/2004#, #1/5/2004#) '= 0
Say DateDiff("h", #1/1/2004 1:59:00 AM#, #1/1/2004 2:00:00 AM#) '= 1
Say DateDiff("n", #1/1/2004 1:59:59 AM#, #1/1/2004 2:00:00 AM#) '= 1
Say DateDiff("s", #1/1/2004#, #1/2/2004#) '= 86400
Say DateDiff("d", "1/1/2004", "2/1/2004") '= 31
Say DateDiff("d", #12/29/1899#, #1/1/1900#) '= 3
Say TypeName(DateDiff("d", #1/1/2004#, #1/2/2004#)) '= Long
Say IsNull(DateDiff("d", Null, #1/2/2004#)) '= True
Say ErrorOf("DateDiff(""x"", #1/1/2004#, #1/2/2004#)") '= 5
Say ErrorOf("DateDiff(""s"", #1/1/1900#, #1/1/2004#)") '= 6
Say ErrorOf("DateDiff(""d"", #1/1/2004#, ""x"")") '= 13
Say ErrorOf("DateDiff(""ww"", #1/1/2004#, #1/2/2004#, 8)") '= 5
