' Add, Item, Exists, Count.
Set d = CreateObject("Scripting.Dictionary")
Say d.Count '= 0
d.Add "a", 1
d.Add "b", "two"
Say d.Count '= 2
Say d("a") '= 1
Say d.Item("b") '= two
Say d.Exists("a") '= True
Say d.Exists("A") '= False
d("a") = 5
Say d("a") '= 5
d("new") = 7
Say d.Count '= 3
d.Item("b") = 8
Say d("b") '= 8
Say TypeName(d.Count) '= Long
