' WeekdayName and MonthName.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say WeekdayName(1) '= Sunday
Say WeekdayName(7) '= Saturday
Say WeekdayName(1.1) '= Sunday
Say WeekdayName(1, True) '= Sun
Say WeekdayName(1, 10) '= Sun
Say WeekdayName(1, False, vbMonday) '= Monday
Say WeekdayName(1, True, 7) '= Sat
Say MonthName(1) '= January
Say MonthName(12) '= December
Say MonthName(2, True) '= Feb
Say ErrorOf("WeekdayName(0)") '= 5
Say ErrorOf("WeekdayName(8)") '= 5
Say ErrorOf("MonthName(0)") '= 5
Say ErrorOf("MonthName(13)") '= 5
Say ErrorOf("MonthName(Null)") '= 94
Say ErrorOf("MonthName(1, Null)") '= 94
Say ErrorOf("WeekdayName(1, True, 8)") '= 5
