For a(1) = 1 To 3 '! 1040
