' IgnoreCase folds letters in characters, classes and references.
Set r = New RegExp
r.IgnoreCase = True
r.Pattern = "^[a-c]X\w(é)\1$"
Say r.Test("BxQÉé") '= True
Say r.Test("DxQÉé") '= False
r.Pattern = "^[^a]$"
Say r.Test("A") '= False
