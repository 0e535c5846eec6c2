' Characters, classes and escapes.
Function Found(pattern, text)
  Dim r, m
  Set r = New RegExp
  r.Pattern = pattern
  Set m = r.Execute(text)
  If m.Count = 0 Then Found = "none" Else Found = "[" & m(0).Value & "]"
End Function
Say Found("a.c", "xabcx") '= [abc]
Say Found("a.c", "a" & vbLf & "c") '= none
Say Found("[bc]+", "abcd") '= [bc]
Say Found("[^bc]+", "bcad") '= [ad]
Say Found("[a-c]+", "xabcd") '= [abc]
Say Found("[a\-z]+", "b-z") '= [-z]
Say Found("[]a]", "]a") '= none
Say Found("[^]]", "a]") '= [a]]
Say Found("[\]a]+", "]a") '= []a]
Say Found("\d+", "ab12") '= [12]
Say Found("\D+", "12ab") '= [ab]
Say Found("\w+", "-a_1-") '= [a_1]
Say Found("\W+", "a-+b") '= [-+]
Say Found("\s", "a b") '= [ ]
Say Found("\S+", " ab ") '= [ab]
Say Found("[\d\s]+", "a1 2b") '= [1 2]
Say Found("[^\W]+", "-ab-") '= [ab]
Say Found("\x41\u0042", "AB") '= [AB]
Say Found("\101", "A") '= [A]
Say Found("\.", "a.b") '= [.]
Say Found("\t", "a" & vbTab) '= [	]
Say Found("a{,2}", "a{,2}") '= [a{,2}]
Say Found("[\b]", "a" & vbBack) = "[" & vbBack & "]" '= True
Say Found("\cI", "a" & vbTab) = "[" & vbTab & "]" '= True
