Const a = f(1) '! 1045
