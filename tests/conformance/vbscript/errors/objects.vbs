Dim x, o
Set o = Nothing
On Error Resume Next
x.Member : Say Err.Number, Err.Description : Err.Clear '= 424 Object required
o.Member : Say Err.Number, Err.Description : Err.Clear '= 91 Object variable not set
x = 5 : x.Member : Say Err.Number : Err.Clear '= 424
x = o.Member.More : Say Err.Number : Err.Clear '= 91
Set x = New Nosuch : Say Err.Number, Err.Description : Err.Clear '= 506 Class not defined
Set x = CreateObject("Excel.Application") : Say Err.Number : Err.Clear '= 429
x = o : Say Err.Number : Err.Clear '= 91
Null_Test
Sub Null_Test
  Dim n
  n = CStr(Null)
  Say Err.Number
End Sub
Say Err.Number '= 94
Err.Clear
x = 5 : x 1 : Say Err.Number : Err.Clear '= 13
S 1, 2 : Say Err.Number, Err.Description : Err.Clear '= 450 Wrong number of arguments or invalid property assignment
Sub S(a)
End Sub
x = Len() : Say Err.Number : Err.Clear '= 450
S = 5 : Say Err.Number : Err.Clear '= 501
Left = 5 : Say Err.Number : Err.Clear '= 501
Dim d
Set d = CreateObject("Scripting.Dictionary")
Set d("k") = 5 : Say Err.Number, d.Count : Err.Clear '= 424 0
