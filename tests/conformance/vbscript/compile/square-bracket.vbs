x = [name '! 1007
