' Key renames an entry in its place.
Set d = CreateObject("Scripting.Dictionary")
d("a") = 1
d("b") = 2
d.Key("a") = "z"
Say Join(d.Keys, ",") '= z,b
Say d("z") '= 1
Say d.Exists("a") '= False
d.Key("b") = "b"
Say d("b") '= 2
d.RemoveAll
For i = 1 To 5000
  d.Add i, i
Next
For i = 1 To 5000
  d.Key(i) = "k" & i
Next
d.Key("k7") = 7
d.Key(7) = "k7"
Say d.Count, d("k5000"), d("k7"), d.Exists(7), d.Exists(1), d.Keys()(6) '= 5000 5000 7 False False k7
