' No GoTo here: the word begins no statement.
x = 1
If x <> 0 Then GoTo Finish '! 1024 Expected statement
