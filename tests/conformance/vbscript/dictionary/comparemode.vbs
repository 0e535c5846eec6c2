' CompareMode makes keys equal without case; only while the dictionary is empty.
Set d = CreateObject("Scripting.Dictionary")
Say d.CompareMode '= 0
d.CompareMode = vbTextCompare
d("Key") = 1
Say d("KEY") '= 1
Say d.Count '= 1
Say Join(d.Keys, ",") '= Key
On Error Resume Next
d.CompareMode = vbBinaryCompare
Say Err.Number '= 5
On Error GoTo 0
d.RemoveAll
d.CompareMode = vbBinaryCompare
d("Key") = 1
Say d.Exists("KEY") '= False
