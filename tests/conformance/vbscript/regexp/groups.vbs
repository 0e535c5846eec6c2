' Groups, alternatives, references, look-ahead.
Function Found(pattern, text)
  Dim r, m
  Set r = New RegExp
  r.Pattern = pattern
  Set m = r.Execute(text)
  If m.Count = 0 Then Found = "none" Else Found = "[" & m(0).Value & "]"
End Function
Say Found("a|b", "cb") '= [b]
Say Found("ab|abc", "abc") '= [ab]
Say Found("|a", "a") '= []
Say Found("(a)(b)?\2", "aa") '= [a]
Say Found("(\w)\1", "abccd") '= [cc]
Say Found("(['""]).*?\1", "x'a""b'y") '= ['a"b']
Say Found("(?:ab)+", "abab") '= [abab]
Say Found("a(?=b)", "acab") '= [a]
Say Found("a(?!b)", "abac") '= [a]
Say Found("(?=(a+))a*b\1", "baaabac") '= [aba]
Say Found("(?!foo)...", "foobar") '= [oob]
Say Found("\b\w+(?=!)", "hi there!") '= [there]
Say Found("(a(?=b(c)))bc", "abc") '= [abc]
Say Found("\8", "8") '= [8]
