' Keys and Items are arrays in the order of adding.
Set d = CreateObject("Scripting.Dictionary")
Say UBound(d.Keys) '= -1
d("b") = 1
d("a") = 2
d(3) = 3
Say Join(d.Keys, ",") '= b,a,3
Say Join(d.Items, ",") '= 1,2,3
d("b") = 9
Say Join(d.Items, ",") '= 9,2,3
d.Remove "b"
d("b") = 4
Say Join(d.Keys, ",") '= a,3,b
k = d.Keys
Say TypeName(k(1)) '= Integer
k(0) = "changed"
Say Join(d.Keys, ",") '= a,3,b
