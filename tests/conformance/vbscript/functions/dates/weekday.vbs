' Weekday counts from Sunday or the day given.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
s = #2/28/2004#
Say Weekday(s) '= 7
Say Weekday(s, vbSunday) '= 7
Say Weekday(s, vbMonday) '= 6
Say Weekday(s, vbSaturday) '= 1
Say Weekday(s, vbUseSystem) '= 7
Say TypeName(Weekday(s)) '= Integer
Say IsNull(Weekday(Null)) '= True
Say ErrorOf("Weekday(s, 8)") '= 5
Say ErrorOf("Weekday(s, -1)") '= 5
Say ErrorOf("Weekday(Null, 8)") '= 5
Say ErrorOf("Weekday(s, Null)") '= 94
Say ErrorOf("Weekday(s, ""a"")") '= 13
