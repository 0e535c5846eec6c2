' Texts, numbers, objects are different keys; numbers are equal by value.
Function ErrorOf(expression) ' the number that evaluating it raises
  Dim ignored
  On Error Resume Next
  ignored = Eval(expression)
  ErrorOf = Err.Number
End Function
Set d = CreateObject("Scripting.Dictionary")
d(1) = "number"
d("1") = "text"
Say d.Count '= 2
Say d(1.0) '= number
Say d(CLng(1)) '= number
Say d(CByte(1)) '= number
Say d(CCur(1)) '= number
Say d("1") '= text
d(True) = "boolean"
Say d(-1) '= boolean
d(Empty) = "empty"
Say d(Empty) '= empty
Set k = New RegExp
Set d(k) = Nothing
Say d.Exists(k) '= True
Say d.Exists(New RegExp) '= False
d(#1/1/2000#) = "date"
Say d(#1/1/2000#) '= date
Say ErrorOf("d.Add(Array(1), 1)") '= 5
