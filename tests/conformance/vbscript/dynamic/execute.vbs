Dim g
g = 1
Execute "g = g + 1"
Say g '= 2
Sub S
  Dim local
  local = 5
  Execute "local = local * 2"
  Say local '= 10
  Execute "made = 7"
  Execute "made = made + 1 : local = made"
  Say local '= 8
  Execute "Dim declared : declared = 3"
  Say Eval("declared + local") '= 11
  ExecuteGlobal "Dim fresh : fresh = ""global"""
  Say fresh '= global
  ExecuteGlobal "Function Added(n) : Added = n + 100 : End Function"
  Say Added(1) '= 101
End Sub
S
Say fresh, TypeName(made) '= global Empty
Say Eval("1 + 2 * 3"), Eval("g = 2") '= 7 True
Execute "Class Late" & vbCrLf & "Public X" & vbCrLf & "End Class"
Dim o
Execute "Set o = New Late"
o.X = 4
Say o.X, TypeName(o) '= 4 Late
Class Holder
  Private m
  Function Sees
    m = 6
    Execute "m = m + 1"
    Sees = Eval("m + Me.Other + Other")
  End Function
  Function Other
    Other = 10
  End Function
End Class
Set o = New Holder
Say o.Sees '= 27
On Error Resume Next
Say TypeName(Eval("")), Eval(vbLf & "1 + 1" & vbLf) '= Empty 2
Execute "x = = 1"
Say Err.Number '= 1023
Err.Clear
Execute "x = 1 / 0"
Say Err.Number '= 11
Err.Clear
g = Eval("1 +")
Say Err.Number '= 1023
