Sub A
    x = 1 '! 1014