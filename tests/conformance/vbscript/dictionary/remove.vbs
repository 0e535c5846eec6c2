' Remove and RemoveAll.
Set d = CreateObject("Scripting.Dictionary")
For i = 1 To 100
  d.Add i, i * i
Next
For i = 1 To 99
  d.Remove i
Next
Say d.Count '= 1
Say d(100) '= 10000
Say d.Exists(50) '= False
d.RemoveAll
Say d.Count '= 0
Say d.Exists(100) '= False
d.Add 100, "again"
Say d(100) '= again
