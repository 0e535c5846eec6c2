' Omitted arguments in the middle take their defaults.
Say Replace("aXbx", "x", "-", , , vbTextCompare) '= a-b-
Say Replace("aaa", "a", "b", , 2) '= bba
Say InStrRev("abAB", "B", , vbTextCompare) '= 4
