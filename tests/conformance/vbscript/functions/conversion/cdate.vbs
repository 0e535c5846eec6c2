' CDate reads dates, times, both, and numbers.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say CDate(0) '= 12:00:00 AM
Say CDate(1) '= 12/31/1899
Say CDate("2/28/2004") '= 2/28/2004
Say CDate("28/2/2004") '= 2/28/2004
Say CDate("2004-02-28") '= 2/28/2004
Say CDate("Feb 28, 2004") '= 2/28/2004
Say CDate("28 February 2004") '= 2/28/2004
Say CDate("Saturday, February 28, 2004") '= 2/28/2004
Say CDate("1/1/29") '= 1/1/2029
Say CDate("1/1/30") '= 1/1/1930
Say CDate("2/28/2004 1:05 PM") '= 2/28/2004 1:05:00 PM
Say CDate("13:05") '= 1:05:00 PM
Say CDate("1 PM") '= 1:00:00 PM
Say CDate("12:00 AM") '= 12:00:00 AM
Say CDate(38045.5) '= 2/28/2004 12:00:00 PM
Say CDate(-1.25) '= 12/29/1899 6:00:00 AM
Say TypeName(CDate(1)) '= Date
Say ErrorOf("CDate(""2/30/2004"")") '= 13
Say ErrorOf("CDate(""25:00"")") '= 13
Say ErrorOf("CDate(""abc"")") '= 13
Say ErrorOf("CDate(1e10)") '= 6
Say ErrorOf("CDate(Null)") '= 94
