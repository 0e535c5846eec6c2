' The byte functions count two bytes a character, and take texts of single bytes.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Say LenB("abc") '= 6
Say IsNull(LenB(Null)) '= True
Say LeftB("abc", 4) '= ab
Say RightB("abc", 2) '= c
Say MidB("abc", 3, 2) '= b
Say MidB("abc", 3) '= bc
Say InStrB("abc", "b") '= 3
Say InStrB(4, "abcb", "b") '= 7
Say InStrB("abc", "x") '= 0
Say AscB("A") '= 65
Say AscB(ChrB(66)) '= 66
Say ErrorOf("LeftB(""abc"", -1)") '= 5
Say ErrorOf("MidB(""abc"", 0)") '= 5
Say ErrorOf("AscB("""")") '= 5
Say LenB(ChrB(65)), LenB(LeftB("abc", 3)), LenB(RightB("abc", 5)), LenB(MidB("abc", 2, 1)) '= 1 3 5 1
Say LenB(ChrB(65) & ChrB(0)), ChrB(65) & ChrB(0) '= 2 A
Say LenB("a" & ChrB(66)), LenB(ChrB(66) & "a"), LenB(ChrB(1) & ChrB(2) & ChrB(3)) '= 3 3 3
Say AscB(MidB(ChrB(1) & ChrB(2) & ChrB(3), 3)), AscW(ChrB(1) & ChrB(2)) '= 3 513
Say InStrB("abc", ChrB(98)), InStrB(ChrB(7) & ChrB(98), ChrB(98)), InStrB("b", "b" & ChrB(0)) '= 3 2 0
' A text that grows byte by byte, and one that another shares.
s = ""
For i = 1 To 1000
  s = s & ChrB(i Mod 256)
Next
t = s
s = s & ChrB(1)
Say LenB(s), LenB(t), AscB(MidB(s, 1000)), AscB(MidB(s, 1001)), LenB(s & t & s) '= 1001 1000 232 1 3002
s = s & "xy" & ChrB(2)
Say LenB(s), AscB(RightB(s, 1)), RightB(s, 5) = "xy" & ChrB(2) '= 1006 2 True
u = ChrB(5)
v = u
u = u & u
Say LenB(u), LenB(v), AscW(u) '= 2 1 1285
Set d = CreateObject("Scripting.Dictionary")
d(ChrB(65)) = 1
d("A") = 2
Say d.Count, d(ChrB(65)) '= 2 1
' Half a character comes before the whole one, whatever asks.
h = ChrB(65)
Say h = "A", h <> "A", h < "A", h >= "A", "A" > h, h < "B", h > "" '= False True True False True True True
Say StrComp(h, "A"), StrComp("A", h), StrComp(h, h), StrComp(h & h, h) '= -1 1 0 1
