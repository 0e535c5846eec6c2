' The smallest program in which a method lets go of its object.
Dim o
Class A
    Dim x
    Sub K
        Set o = Nothing
        x = 5
    End Sub
    Sub Class_Terminate
        y = 1
        Say "over"                          '= over
    End Sub
End Class
Set o = New A
o.K
Say "end"                                   '= end
