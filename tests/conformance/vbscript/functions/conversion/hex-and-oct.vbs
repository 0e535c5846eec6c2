' Hex and Oct: sixteen bits up to Integer, thirty-two above.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say Hex(0) '= 0
Say Hex(255) '= FF
Say Hex(-1) '= FFFF
Say Hex(-32767) '= 8001
Say Hex(-32768) '= FFFF8000
Say Hex(CLng(-1)) '= FFFFFFFF
Say Hex(-1.0) '= FFFFFFFF
Say Hex(&hdeadbeef&) '= DEADBEEF
Say Hex(228.5) '= E4
Say Hex(229.5) '= E6
Say Hex("17") '= 11
Say Hex(Empty) '= 0
Say Hex(2147483647.49) '= 7FFFFFFF
Say IsNull(Hex(Null)) '= True
Say Oct(8) '= 10
Say Oct(-1) '= 177777
Say Oct(-32768) '= 37777700000
Say Oct(8.5) '= 10
Say Oct(Empty) '= 0
Say IsNull(Oct(Null)) '= True
Say ErrorOf("Hex(2147483648)") '= 6
Say ErrorOf("Hex(""test"")") '= 13
Say ErrorOf("Oct(2147483647.5)") '= 6
