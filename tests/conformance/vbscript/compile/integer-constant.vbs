Dim a(x) '! 1026
