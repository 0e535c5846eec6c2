Dim depth
Sub Deep
  depth = depth + 1
  Deep
End Sub
Class Loops
  Public Default Property Get Value
    Value = Me + 1
  End Property
End Class
On Error Resume Next
Deep
Say Err.Number, depth > 1000 '= 28 True
Err.Clear
Dim x
x = 0 + New Loops
Say Err.Number '= 28
