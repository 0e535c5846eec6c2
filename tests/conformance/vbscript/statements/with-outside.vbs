Dim x
On Error Resume Next
.Name = 1
Say Err.Number '= 505
x = .Name
Say Err.Number, Err.Description '= 505 Invalid or unqualified reference
On Error GoTo 0
.Name '! 505
