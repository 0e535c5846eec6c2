' The parts of a date are Integers; Null stays Null.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
d = #2/28/2004 1:05:59 PM#
Say Year(d) '= 2004
Say Month(d) '= 2
Say Day(d) '= 28
Say Hour(d) '= 13
Say Minute(d) '= 5
Say Second(d) '= 59
Say Year("2/28/1999") '= 1999
Say Day(2) '= 1
Say Year(0) '= 1899
Say Hour(2.75) '= 18
Say Minute(2.02083) '= 30
Say TypeName(Year(d)) '= Integer
Say IsNull(Year(Null)) '= True
Say IsNull(Second(Null)) '= True
Say ErrorOf("Year(""abc"")") '= 13
