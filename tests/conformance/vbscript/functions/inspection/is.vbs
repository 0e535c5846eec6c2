' IsEmpty, IsNull, IsObject.
Say IsEmpty(Empty) '= True
Say IsEmpty("") '= False
Say IsEmpty(0) '= False
Say IsNull(Null) '= True
Say IsNull(Empty) '= False
Say IsObject(Nothing) '= True
Say IsObject(CreateObject("Scripting.Dictionary")) '= True
Say IsObject("x") '= False
Dim neverSet
Say IsEmpty(neverSet) '= True
