' Items may be objects; Set stores them, and they are the same object.
Set d = CreateObject("Scripting.Dictionary")
Set e = CreateObject("Scripting.Dictionary")
Set d("e") = e
e("inner") = 5
Say d("e")("inner") '= 5
Say d("e") Is e '= True
d.Add "n", Nothing
Say d("n") Is Nothing '= True
d("arr") = Array(1, 2)
Say d("arr")(1) '= 2
