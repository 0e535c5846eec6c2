S(1, 2) '! 1044 Cannot use parentheses when calling a Sub
