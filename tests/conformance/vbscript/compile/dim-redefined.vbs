Dim a
Dim A '! 1041
