' Err stays what it is: a value assigned to it goes to its default property.
Err = 5
Say Err.Number, TypeName(Err)               '= 5 Object
Err.Clear
Say Err.Number                              '= 0
ExecuteGlobal "Err = 6"
Say Err.Number                              '= 6
Execute "Err = 7 + 1"
Say Err & ""                                '= 8
Sub InProcedure
    Err = 9
    Say Err.Number                          '= 9
    Execute "Err = 10"
    Say Err.Number                          '= 10
    On Error Resume Next
    Set Err = Nothing
    Say Err.Number                          '= 501
    Err = "text"
    Say Err.Number                          '= 13
    Err.Clear
    ReDim Err(2)
    Say Err.Number                          '= 501
End Sub
InProcedure
Sub OwnVariable
    Dim Err
    Err = 3
    Say Err                                 '= 3
End Sub
OwnVariable
Err = 0
Set Err = New RegExp                        '! 501
