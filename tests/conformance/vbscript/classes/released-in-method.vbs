' A method may let go of the last other reference to its own object: the object lives until the method is left,
' and its Terminate runs then, before the caller goes on.
Option Explicit
Dim o, p, x, i

Class A
    Public Name
    Sub Leave
        Set o = Nothing
        x = 5
        Say "leaving"                       '= leaving | leaving | leaving
    End Sub
    Function Answer(n)
        Set o = Nothing
        Answer = n + Helper(n)
    End Function
    Private Function Helper(n)
        Dim local
        Set local = New B
        Helper = n
    End Function
    Property Get Value
        Set o = Nothing
        Value = "v"
    End Property
    Property Let Value(given)
        Set o = Nothing
        x = given
    End Property
    Public Default Function Item(n)
        Set o = Nothing
        Item = n * 2
    End Function
    Sub Fail
        Set o = Nothing
        x = 1 \ 0                           '! 11
    End Sub
    Sub Deep(n)
        If n = 0 Then Set o = Nothing Else Deep n - 1
    End Sub
    Sub Class_Terminate
        Dim y, z(2)
        For y = 0 To 2
            z(y) = Twice(y)
        Next
        i = i + 1
    End Sub
End Class

Class B
    Sub Class_Terminate
        x = Twice(21)
        x = 1 \ 0 ' ends Terminate and nothing else
    End Sub
End Class

Function Twice(n)
    Twice = n * 2
End Function

Sub Check(expected)
    If i <> expected Then Err.Raise 1000, , "Terminate ran " & i & " times"
End Sub

Set o = New A
o.Leave
Check 1
Call (New A).Leave
Check 2
Set o = New A
With o
    .Leave
    Check 2
End With
Check 3
Set o = New A
Say o.Answer(4) + o_or_zero                 '= 8
Check 4
Set o = New A
Say o.Value, x                              '= v 42
o_is_nothing
Set o = New A
o.Value = 7
Say x                                       '= 7
Set o = New A
Say o(21)                                   '= 42
Set o = New A
o.Deep 50
Check 8
Say "" & (New A).Answer(1), x                    '= 2 42
Check 9

Function o_or_zero
    If o Is Nothing Then o_or_zero = 0 Else o_or_zero = 1000
End Function
Sub o_is_nothing
    If Not o Is Nothing Then Err.Raise 1000
End Sub

' An error on the way out of the method lets go of it as well.
On Error Resume Next
Set o = New A
o.Fail
Say Err.Number, i                           '= 11 10
Err.Clear
Call (New A).Fail
Say Err.Number, i                           '= 11 11
Err.Clear
Sub Through
    Dim held
    Set held = New B
    Set o = New A
    o.Fail
    Say "never said"
End Sub
Through
Say Err.Number, i, x                        '= 11 12 42
Err.Clear
Function Shielded
    On Error Resume Next
    Set o = New A
    o.Fail
    Shielded = Err.Number
    o.Fail
    Shielded = Shielded & " " & Err.Number
End Function
Say Shielded, i                             '= "11 91 13"
On Error GoTo 0

Dim rounds
For rounds = 1 To 3
    Set o = New A
    o.Answer rounds
Next
Check 16
Execute "Set o = New A : o.Answer 1 : Check 17"
Say Eval("(New A).Answer(2)")               '= 4
Check 18
Set o = New A
Say "end"                                   '= end
o.Fail
