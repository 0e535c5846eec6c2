For i To 3 '! 1011
