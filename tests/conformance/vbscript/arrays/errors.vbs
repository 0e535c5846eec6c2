Dim fixed(2), dyn(), x
On Error Resume Next
x = fixed(3) : Say Err.Number, Err.Description : Err.Clear '= 9 Subscript out of range
x = fixed(-1) : Say Err.Number : Err.Clear '= 9
x = fixed(0, 0) : Say Err.Number : Err.Clear '= 9
fixed(3) = 1 : Say Err.Number : Err.Clear '= 9
x = UBound(dyn) : Say Err.Number : Err.Clear '= 9
dyn(0) = 1 : Say Err.Number : Err.Clear '= 9
ReDim fixed(5) : Say Err.Number : Err.Clear '= 10
ReDim fixed("abc") : Say Err.Number : Err.Clear '= 10
ReDim Preserve fixed(5) : Say Err.Number : Err.Clear '= 10
ReDim x(1, 1) : ReDim Preserve x(2, 1) : Say Err.Number : Err.Clear '= 9
x = 5
x(0) = 1 : Say Err.Number : Err.Clear '= 13
x = x(0) : Say Err.Number : Err.Clear '= 13
fixed = 5 : Say Err.Number : Err.Clear '= 13
Erase x : Say Err.Number : Err.Clear '= 13
ReDim x(-2) : Say Err.Number : Err.Clear '= 9
x = fixed("a") : Say Err.Number : Err.Clear '= 13
ReDim dyn(1)
Sub Try
  On Error Resume Next
  Grow2 dyn(0)
  Say Err.Number '= 10
End Sub
Sub Grow2(e)
  ReDim dyn(10)
End Sub
Try : Err.Clear
ReDim dyn(10) : Say UBound(dyn), Err.Number '= 10 0
