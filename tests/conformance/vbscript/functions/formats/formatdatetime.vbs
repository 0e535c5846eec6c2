' FormatDateTime: five forms.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
d = #2/8/2004 1:05:00 PM#
Say FormatDateTime(d) '= 2/8/2004 1:05:00 PM
Say FormatDateTime(d, vbGeneralDate) '= 2/8/2004 1:05:00 PM
Say FormatDateTime(d, vbLongDate) '= Sunday, February 8, 2004
Say FormatDateTime(d, vbShortDate) '= 2/8/2004
Say FormatDateTime(d, vbLongTime) '= 1:05:00 PM
Say FormatDateTime(d, vbShortTime) '= 13:05
Say FormatDateTime(#2/8/2004#) '= 2/8/2004
Say FormatDateTime("2/8/2004", 1) '= Sunday, February 8, 2004
Say FormatDateTime(0) '= 12:00:00 AM
Say ErrorOf("FormatDateTime(d, 5)") '= 5
Say ErrorOf("FormatDateTime(Null)") '= 13
Say ErrorOf("FormatDateTime(d, Null)") '= 94
