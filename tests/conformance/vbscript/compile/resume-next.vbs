On Error Resume 0 '! 1020
