' IsArray.
Say IsArray(Array()) '= True
Say IsArray("x") '= False
Say IsArray(Empty) '= False
Say IsArray(Nothing) '= False
Say IsArray(Split("a")) '= True
