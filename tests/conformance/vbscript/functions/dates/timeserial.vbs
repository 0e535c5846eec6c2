' TimeSerial carries over into days.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say TimeSerial(13, 5, 7) '= 1:05:07 PM
Say TimeSerial(12, -1, 0) '= 11:59:00 AM
Say TimeSerial(10, 60, 2) '= 11:00:02 AM
Say TimeSerial(0, 0, 0) '= 12:00:00 AM
Say TimeSerial(25, 0, 0) '= 12/31/1899 1:00:00 AM
Say TimeSerial(0, -1, 0) '= 12/29/1899 11:59:00 PM
Say ErrorOf("TimeSerial(Null, 1, 1)") '= 94
Say ErrorOf("TimeSerial(40000, 0, 0)") '= 6
