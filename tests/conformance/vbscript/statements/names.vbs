Dim [my name], [end], Property, Default, Error, Step, Explicit
[my name] = 1
[end] = 2
Property = 3 : Default = 4 : Error = 5 : Step = 6 : Explicit = 7
Say [my name], [end], [MY NAME] '= 1 2 1
Say Property, Default, Error, Step, Explicit '= 3 4 5 6 7
DIM Upper
upper = "case"
Say UPPER '= case
