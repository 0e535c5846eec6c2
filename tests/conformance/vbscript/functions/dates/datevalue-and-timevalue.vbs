' DateValue drops the time, TimeValue the date.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say DateValue("2/28/2004 13:05") '= 2/28/2004
Say DateValue(#2/28/2004 1:05:00 PM#) '= 2/28/2004
Say DateValue("1:05 PM") '= 12:00:00 AM
Say TimeValue("2/28/2004 13:05") '= 1:05:00 PM
Say TimeValue("1:05:30 PM") '= 1:05:30 PM
Say TimeValue(#2/28/2004#) '= 12:00:00 AM
Say ErrorOf("DateValue(""abc"")") '= 13
Say ErrorOf("DateValue(""5"")") '= 13
Say ErrorOf("TimeValue(""abc"")") '= 13
Say ErrorOf("DateValue(Null)") '= 94
