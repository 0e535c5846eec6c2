' A dictionary is the same whatever its size, and at the sizes where it might keep its entries otherwise.
Class Watcher
  Public Owner, Name
  Private Sub Class_Terminate
    gone = gone & Name & Owner.Count & " "
    If Not Owner.Exists("last") Then Owner.Add "last", Name
  End Sub
End Class
Function KeysOf(d)
  KeysOf = Join(d.Keys, "")
End Function
Dim gone, wrong, size, mode
' Of each size: every key is found, no other is; one renamed and one removed, in the middle and at the ends.
For mode = 0 To 1
  For size = 1 To 60
    Set d = CreateObject("Scripting.Dictionary")
    d.CompareMode = mode
    For i = 1 To size
      d.Add "k" & i, i
    Next
    found = 0
    For i = 1 To size
      If d.Exists("k" & i) Then found = found + d("k" & i)
    Next
    If found <> size * (size + 1) / 2 Or d.Exists("k0") Or d.Exists("k" & (size + 1)) Or d.Count <> size Then wrong = wrong & size & " "
    If d.Exists("K1") <> (mode = 1) Then wrong = wrong & size & "case "
    middle = (size + 1) \ 2
    d.Key("k" & middle) = "renamed"
    If d.Keys()(middle - 1) <> "renamed" Or d("renamed") <> middle Or d.Exists("k" & middle) Then wrong = wrong & size & "renamed "
    d.Remove "renamed"
    If d.Count <> size - 1 Or d.Exists("renamed") Then wrong = wrong & size & "removed "
    d("renamed") = 0
    If d.Count <> size Or d.Keys()(size - 1) <> "renamed" Or d.Items()(size - 1) <> 0 Then wrong = wrong & size & "again "
    For Each k In d
      d.Remove k
    Next
    If d.Count <> 0 Or UBound(d.Keys) <> -1 Then wrong = wrong & size & "emptied "
  Next
Next
Say "[" & wrong & "]" '= []
' The order is that of adding, however often entries went between.
Set d = CreateObject("Scripting.Dictionary")
For i = 0 To 25
  d.Add Chr(97 + i), i
  If i Mod 3 = 1 Then d.Remove Chr(97 + i - 1)
Next
Say KeysOf(d) '= bcefhiklnoqrtuwxz
For i = 0 To 25
  If d.Exists(Chr(97 + i)) Then d.Remove Chr(97 + i)
  If i Mod 2 = 0 Then d.Add Chr(65 + i), i
Next
Say KeysOf(d) '= ACEGIKMOQSUWY
' As many renamings as one likes need no room.
For i = 1 To 1000
  d.Key(d.Keys()(i Mod 13)) = i
Next
Say d.Count, d.Exists(1000), d.Exists(987), d.Exists(988) '= 13 True False True
Say d.Items()(1000 Mod 13) '= 24
' Adding while For Each runs does not reach what it runs over, also when the dictionary outgrows itself.
Set d = CreateObject("Scripting.Dictionary")
For i = 1 To 8
  d(i) = i
Next
seen = 0
For Each k In d
  seen = seen + 1
  d.Add k + 8, 0
  d.Remove k
Next
Say seen, d.Count, Join(d.Keys) '= 8 8 9 10 11 12 13 14 15 16
' What goes may use the dictionary it goes out of.
For Each size In Array(1, 8, 9, 40)
  Set d = CreateObject("Scripting.Dictionary")
  For i = 1 To size
    d.Add i, i
  Next
  Set w = New Watcher
  Set w.Owner = d
  w.Name = "x"
  Set d(1) = w
  Set w = Nothing
  d.Remove 1
  Say gone, d.Count, d("last") '= x0  1 x | x0 x7  8 x | x0 x7 x8  9 x | x0 x7 x8 x39  40 x
Next
gone = ""
Set w = New Watcher
Set w.Owner = d
w.Name = "y"
d.Remove "last"
d.Add w, w
Set w = Nothing
d.RemoveAll
Say gone, d.Count, d("last") '= y0  1 y
' It may hold itself, as item and as key.
Set d = CreateObject("Scripting.Dictionary")
d.Add "self", d
Set d(d) = d
Say d("self")("self").Count, d.Exists(d), d(d)(d) Is d '= 2 True True
For i = 1 To 10
  Set d(i) = d
Next
d.Remove d
Say d.Count, d(10)("self") Is d '= 11 True
