Class Grid
  Private cells(9)
  Private held
  Public Default Property Get Item(i)
    Item = cells(i)
  End Property
  Public Property Let Item(i, value)
    cells(i) = value
  End Property
  Public Property Set Target(o)
    Set held = o
  End Property
  Public Property Get Target
    Set Target = held
  End Property
  Public Property Get ReadOnly : ReadOnly = 1 : End Property
End Class
Class Plain
  Public Default Function Value
    Value = 42
  End Function
End Class
Dim g, p
Set g = New Grid
g.Item(3) = "x"
g(4) = "y"
Say g.Item(3), g(4), g(3) '= x y x
Set g.Target = Host
Say g.Target.Name '= quillon
Set p = New Plain
Say p + 1, "v" & p '= 43 v42
Dim v
v = p
Say v, TypeName(v) '= 42 Integer
Say p = 42 '= True
If p = 42 Then Say "default" '= default
On Error Resume Next
g.ReadOnly = 2
Say Err.Number '= 438
Err.Clear
v = g
Say Err.Number '= 450
Err.Clear
Set v = 5
Say Err.Number, Err.Description '= 424 Object required
