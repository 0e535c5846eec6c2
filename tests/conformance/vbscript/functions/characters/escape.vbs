' Escape and Unescape.
Say Escape("a b+c/d") '= a%20b+c/d
Say Escape("@*_+-./09AZaz") '= @*_+-./09AZaz
Say Escape(ChrW(233) & ChrW(8364)) '= %E9%u20AC
Say Unescape("a%20b%u20AC") = "a b" & ChrW(8364) '= True
Say Unescape("%zz%u12") '= %zz%u12
Say Unescape(Escape(vbCrLf & "ä%")) = vbCrLf & "ä%" '= True
