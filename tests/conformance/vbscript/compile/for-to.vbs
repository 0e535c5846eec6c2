For i = 1 Two 3 '! 1013
