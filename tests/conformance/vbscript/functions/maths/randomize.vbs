' Randomize changes the middle of the seed; after Rnd(-1) the sequence repeats.
x = Rnd(-1)
Randomize 123
x = Rnd
y = Rnd(-1)
Randomize 123
Say x = Rnd '= True
Randomize 123
Say x = Rnd '= False
