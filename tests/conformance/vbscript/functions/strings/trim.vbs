' Trim removes blanks only, not tabs or line ends.
Say "[" & Trim("  a b  ") & "]" '= [a b]
Say "[" & LTrim("  a  ") & "]" '= [a  ]
Say "[" & RTrim("  a  ") & "]" '= [  a]
Say Len(Trim(vbTab & "a" & vbCrLf)) '= 4
Say Len(Trim(ChrW(160) & "a")) '= 2
Say Trim(123) '= 123
Say Trim("   ") = "" '= True
Say IsNull(Trim(Null)) '= True
Say IsNull(LTrim(Null)) '= True
Say IsNull(RTrim(Null)) '= True
