' For Each runs over the keys; the body may change the dictionary.
Set d = CreateObject("Scripting.Dictionary")
d("x") = 1
d("y") = 2
t = ""
For Each k In d
  t = t & k & "=" & d(k) & ";"
Next
Say t '= x=1;y=2;
For Each k In d
  d.Remove k
Next
Say d.Count '= 0
