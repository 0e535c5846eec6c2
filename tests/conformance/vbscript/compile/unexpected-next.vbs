Next '! 1055
