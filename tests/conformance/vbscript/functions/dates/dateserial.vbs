' DateSerial carries over; years to 29 are of this century.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say DateSerial(2004, 2, 28) '= 2/28/2004
Say DateSerial(2004, 14, -3) '= 1/28/2005
Say DateSerial(2004, 3, 0) '= 2/29/2004
Say DateSerial(2003, 2, 29) '= 3/1/2003
Say DateSerial(99, 1, 1) '= 1/1/1999
Say DateSerial(29, 1, 1) '= 1/1/2029
Say DateSerial(0, 2, 1) '= 2/1/2000
Say DateSerial(100, 2, 1) '= 2/1/100
Say DateSerial(9999, 12, 31) '= 12/31/9999
Say TypeName(DateSerial(2000, 1, 1)) '= Date
Say ErrorOf("DateSerial(10000, 1, 1)") '= 5
Say ErrorOf("DateSerial(-10000, 1, 1)") '= 5
Say ErrorOf("DateSerial(Null, 1, 1)") '= 94
Say ErrorOf("DateSerial(2000, 1, Null)") '= 94
Say ErrorOf("DateSerial(2003, 1, 32768)") '= 6
