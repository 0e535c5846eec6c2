' Greedy and lazy quantifiers.
Function Found(pattern, text)
  Dim r, m
  Set r = New RegExp
  r.Pattern = pattern
  Set m = r.Execute(text)
  If m.Count = 0 Then Found = "none" Else Found = "[" & m(0).Value & "]"
End Function
Say Found("a*", "aab") '= [aa]
Say Found("a*", "b") '= []
Say Found("a+", "baa") '= [aa]
Say Found("ba?", "baa") '= [ba]
Say Found("a{2}", "aaa") '= [aa]
Say Found("a{2,}", "aaaa") '= [aaaa]
Say Found("a{1,2}", "aaa") '= [aa]
Say Found("<.*>", "<a><b>") '= [<a><b>]
Say Found("<.*?>", "<a><b>") '= [<a>]
Say Found("a+?", "aaa") '= [a]
Say Found("a??b", "ab") '= [ab]
Say Found("a{1,3}?b", "aab") '= [aab]
Say Found("(ab)*", "ababa") '= [abab]
Say Found("(ab)+?c", "ababc") '= [ababc]
Say Found("(ab){2}", "abab") '= [abab]
Say Found("(a|b)*c", "abac") '= [abac]
Say Found("(a*)*", "aa") '= [aa]
Say Found("(a*)+b", "aaab") '= [aaab]
Say Found("(?:a|ab)(?:c|bcd)(d*)", "abcd") '= [abcd]
Say Found("(a?b??)*", "ab") '= [ab]
Say Found("x{0}y", "xy") '= [y]
Say Found("(?:ab){1,2}?c", "ababc") '= [ababc]
