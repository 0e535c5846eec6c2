' Test finds the pattern anywhere.
Set r = New RegExp
Say r.Test("") '= True
r.Pattern = "b+"
Say r.Test("abbc") '= True
Say r.Test("ac") '= False
Say r.Test("B") '= False
r.IgnoreCase = True
Say r.Test("B") '= True
Say r.Pattern '= b+
Say r.Global '= False
Say r.IgnoreCase '= True
Say r.Multiline '= False
