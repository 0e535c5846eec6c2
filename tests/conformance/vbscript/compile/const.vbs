Const a = 1 + 2 '! 1025
