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
