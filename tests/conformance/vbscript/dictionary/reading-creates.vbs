' Reading an unknown key adds it with Empty.
Set d = CreateObject("Scripting.Dictionary")
Say IsEmpty(d("x")) '= True
Say d.Count '= 1
Say d.Exists("x") '= True
Say d.Exists("y") '= False
Say d.Count '= 1
