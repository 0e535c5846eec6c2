' Matches and their parts are collections.
Set r = New RegExp
r.Global = True
r.Pattern = "(\w)=(\d)"
t = ""
For Each m In r.Execute("a=1, b=2")
  t = t & m.Value & ";"
  For Each s In m.SubMatches
    t = t & s & "."
  Next
Next
Say t '= a=1;a.1.b=2;b.2.
