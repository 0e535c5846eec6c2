x = 1abc '! 1031
