' Anchors and lines.
Function Count(pattern, text, multi)
  Dim r
  Set r = New RegExp
  r.Global = True
  r.Multiline = multi
  r.Pattern = pattern
  Count = r.Execute(text).Count
End Function
Say Count("^a", "a" & vbLf & "a", False) '= 1
Say Count("^a", "a" & vbLf & "a", True) '= 2
Say Count("a$", "a" & vbCrLf & "a", False) '= 1
Say Count("a$", "a" & vbCrLf & "a", True) '= 2
Say Count("^$", "", False) '= 1
Say Count("\bfoo\b", "foo food foo", False) '= 2
Say Count("\Boo", "foo oo", False) '= 1
Say Count("$", "a" & vbLf, False) '= 1
Say Count("", "abc", False) '= 4
