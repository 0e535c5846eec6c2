x = "abc '! 1033
