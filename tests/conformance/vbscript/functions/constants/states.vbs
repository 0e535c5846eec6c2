' Comparison and three-state constants.
Say vbBinaryCompare & vbTextCompare & vbDatabaseCompare '= 012
Say vbTrue & "," & vbFalse & "," & vbUseDefault '= -1,0,-2
Say vbObjectError '= -2147221504
Say Hex(vbObjectError) '= 80040000
