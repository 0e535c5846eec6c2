Dim next '! 1010
